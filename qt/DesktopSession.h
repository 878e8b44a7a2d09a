#pragma once
// One run of the desktop program in its program folder: start-up, the main
// window until it closes, exit. Call on the user-interface thread with a
// QApplication in place. Returns the exit status: 0 after a normal run (a
// refused catalogue included), 1 when the catalogue cannot be opened, 4 when
// another program holds it.
int RunDesktop();
