#pragma once
// Where the session bus is. A program that connects without an address in
// DBUS_SESSION_BUS_ADDRESS lets the D-Bus library "autolaunch" a bus daemon
// of its own, which outlives the program. So the address is settled once, at
// start-up, before Qt, GLib or GStreamer can look: the variable as the
// desktop set it; else the user's bus socket in $XDG_RUNTIME_DIR/bus when
// there is one; else kNoBus, an address every D-Bus library refuses without
// starting anything.

#include <string>

inline constexpr const char* kNoBus = "disabled:";

// Sets DBUS_SESSION_BUS_ADDRESS as above; call before any thread starts.
void SettleSessionBusAddress();
// Whether DBUS_SESSION_BUS_ADDRESS names a bus (set, and not kNoBus).
bool HasSessionBusAddress();
