#pragma once
#include <functional>
#include <string>

#include "catalogue/CppSQLite3Exception.h"

// Ends the process with exit status 1 after a catalogue statement failed,
// writing the failure and SQLite's latest message for the connection
// (connectionMessage, when the failure does not carry it already) as one line
// to standard error. Nothing is rolled back: SQLite discards the open
// transaction when the catalogue is next opened.
[[noreturn]] void EndOnCatalogueFailure(const CppSQLite3Exception& failure, const char* connectionMessage);
// The same with a text of its own, written to standard error as it is.
[[noreturn]] void EndOnCatalogueFailure(const std::string& text);

// Called with the text of the failure just before the process ends, on the
// thread that failed; a program with windows shows it there, since standard
// error is seen by nobody. Only the first failure is told: a failure on
// another thread meanwhile waits, and one on the same thread (from within
// the telling) ends the process at once.
using CatalogueFailureNotice = std::function<void(const std::string& text)>;
void NoticeCatalogueFailuresWith(CatalogueFailureNotice notice);
