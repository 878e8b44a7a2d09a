#pragma once
// The copy job of the play list: where the next copy goes, whether it takes
// only the selected rows, and what the copy worker and the "Copying Files"
// dialog share while it runs (status text, progress 0..100, cancel, done).
// target and selectionOnly are set on the user-interface thread before the
// worker starts and only read while it runs.

#include <string>

#include "scan/WorkerProgress.h"

struct CopyJob {
  std::string target;
  bool selectionOnly = false;
  WorkerProgress state;
};
