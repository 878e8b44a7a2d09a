#pragma once
// The SQL function the quick search matches with, registered on a connection:
//   vantrelle_holds(part, text1, text2, ...)
// is 1 when any of the texts, with its letter case folded (CaseFold), holds
// part as it is given (folded by the caller, taken literally: "%", "_" and
// "\" are plain characters), and 0 otherwise; NULL texts hold nothing.

struct sqlite3;

namespace folded_search {

constexpr const char* kFunction = "vantrelle_holds";

// Throws CppSQLite3Exception when SQLite refuses the function.
void Register(sqlite3* connection);

}  // namespace folded_search
