#pragma once
// One run of the console: parse the command line, start up, run one command,
// exit. Exit statuses: 0 done (a cancelled question included); 1 a catalogue
// statement failed, the catalogue cannot be opened or must not be used where
// it lies, or it is read-only and the command would change it, or a play
// list file could not be written or read or named no catalogued file; 2 a wrong
// command line or id; 3 the catalogue was refused; 4 another program holds
// the catalogue.
int RunConsole(int argc, char** argv);
