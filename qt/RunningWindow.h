#pragma once
// A second start of the desktop program on a catalogue that a first one
// holds: the first is asked over the session bus to raise its window, so the
// user finds the window they already have, as with any other player.

// True when the desktop program of that process (the holder of the
// catalogue's lock) took the request; false without a session bus, when the
// holder is not a desktop program on this bus (a console command, another
// catalogue's program), or when it did not answer in time.
bool RaiseRunningWindow(int holderPid);
