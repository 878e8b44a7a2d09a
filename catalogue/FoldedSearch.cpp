#include "catalogue/FoldedSearch.h"

#include <sqlite3.h>

#include <string_view>

#include "base/CaseFold.h"
#include "catalogue/CppSQLite3Exception.h"

namespace folded_search {
namespace {

std::string_view TextOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (!text) return {};
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void Holds(sqlite3_context* context, int count, sqlite3_value** values) {
  const auto& fold = *static_cast<const CaseFold*>(sqlite3_user_data(context));
  const std::string_view part = TextOf(values[0]);
  for (int i = 1; i < count; ++i) {
    if (sqlite3_value_type(values[i]) == SQLITE_NULL) continue;
    if (fold.Holds(TextOf(values[i]), part)) {
      sqlite3_result_int(context, 1);
      return;
    }
  }
  sqlite3_result_int(context, 0);
}

void Destroy(void* fold) { delete static_cast<CaseFold*>(fold); }

}  // namespace

void Register(sqlite3* connection) {
  const int result = sqlite3_create_function_v2(
      connection, kFunction, -1, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
      new CaseFold, Holds, nullptr, nullptr, Destroy);
  // SQLite destroys the fold itself when registering fails.
  if (result != SQLITE_OK) throw CppSQLite3Exception(result, sqlite3_errmsg(connection));
}

}  // namespace folded_search
