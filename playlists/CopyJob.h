#pragma once
// The copy job of the play list: where the next copy goes, whether it takes
// only the selected rows, what the copy worker and the "Copying Files"
// dialog share while it runs (status text, progress 0..100, cancel, done),
// and what the last copy came to.
// target and selectionOnly are set on the user-interface thread before the
// worker starts and only read while it runs. The worker alone writes the
// summary; the user-interface thread reads it only after the dialog has
// joined the worker's thread, which orders the two, so it has no lock.

#include <string>

#include "base/WorkerProgress.h"
#include "playlists/CopySummary.h"

struct CopyJob {
  std::string target;
  bool selectionOnly = false;
  WorkerProgress state;
  CopySummary summary;
};
