#include "tools/screenshots/Shots.h"

// The main window and the play list window join here once the desktop
// program's windows exist: one Shot each, built over a catalogue of samples.
void AddWindowShots(ShotList&) {}
