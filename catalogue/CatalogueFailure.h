#pragma once
#include "catalogue/CppSQLite3Exception.h"

// Ends the process with exit status 1 after a catalogue statement failed,
// writing the failure and SQLite's latest message for the connection
// (connectionMessage, when the failure does not carry it already) as one line
// to standard error. Nothing is rolled back: SQLite discards the open
// transaction when the catalogue is next opened.
[[noreturn]] void EndOnCatalogueFailure(const CppSQLite3Exception& failure,
                                        const char* connectionMessage);
