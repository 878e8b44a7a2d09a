#pragma once
// The exit statuses of both programs, the window's and the console's, so that
// a script reads a run of either alike.

namespace exit_status {

constexpr int kDone = 0;
// The catalogue could not be found, opened or used; or a statement failed.
constexpr int kCatalogueFailed = 1;
constexpr int kWrongCommandLine = 2;
// The catalogue's version was refused.
constexpr int kCatalogueRefused = 3;
// Another program holds the catalogue.
constexpr int kCatalogueInUse = 4;

}  // namespace exit_status
