#include "catalogue/IdMarks.h"

#include "catalogue/MediaDB.h"
#include "catalogue/MediaDBStatements.h"

namespace {

struct IdTable {
  const char* table;
  const char* key;
  int configId;
};

// The Configs rows that hold the marks lie above the settings' numbers.
constexpr IdTable kIdTables[] = {
    {"MediaFiles", "FileID", 901},
    {"MediaPaths", "PathID", 902},
    {"MediaVolumes", "VolID", 903},
    {"PlayLists", "PlayListID", 904},
};

const IdTable& TableOf(IdKind kind) { return kIdTables[static_cast<int>(kind)]; }

}  // namespace

bool IdMarks::AnyMarkMissing() {
  for (const IdTable& t : kIdTables)
    if (db_.QueryIntF("SELECT count(*) FROM Configs WHERE ConfigID=%d;", t.configId) == 0) return true;
  return false;
}

bool IdMarks::WriteMissingMarks() {
  bool wrote = false;
  for (const IdTable& t : kIdTables) {
    if (db_.QueryIntF("SELECT count(*) FROM Configs WHERE ConfigID=%d;", t.configId) != 0) continue;
    const std::string format =
        std::string("INSERT INTO Configs(ConfigID,Value) SELECT %d,ifnull(max(") + t.key + "),0) FROM " + t.table + ";";
    db_.ExecuteForInsertIdF(format.c_str(), t.configId);
    wrote = true;
  }
  return wrote;
}

void IdMarks::Start() {
  mayBeBelowMark_.fill(true);
  for (const IdTable& t : kIdTables) {
    const std::string format = std::string("CREATE TEMP TRIGGER IF NOT EXISTS vantrelle_mark_") + t.key +
                               " AFTER DELETE ON main." + t.table + " BEGIN UPDATE Configs SET Value=OLD." + t.key +
                               " WHERE ConfigID=%d AND CAST(Value AS INTEGER)<OLD." + t.key + "; END;";
    db_.ExecuteForInsertIdF(format.c_str(), t.configId);
  }
}

int IdMarks::PlaceholderId(IdKind kind) {
  if (!mayBeBelowMark_[static_cast<int>(kind)]) return 0;
  const IdTable& t = TableOf(kind);
  const int mark = db_.QueryIntF("SELECT CAST(Value AS INTEGER) FROM Configs WHERE ConfigID=%d;", t.configId);
  const std::string highest = std::string("SELECT ifnull(max(") + t.key + "),0) FROM " + t.table + ";";
  const int placeholder = mark > db_.QueryInt(highest.c_str()) ? mark : 0;
  if (placeholder == 0) mayBeBelowMark_[static_cast<int>(kind)] = false;
  return placeholder;
}

void IdMarks::AddPlaceholder(IdKind kind, int id) {
  const IdTable& t = TableOf(kind);
  const std::string format = std::string("INSERT INTO ") + t.table + "(" + t.key + ") VALUES(%d);";
  db_.ExecuteForInsertIdF(format.c_str(), id);
}

void IdMarks::RemovePlaceholder(IdKind kind, int id) {
  const IdTable& t = TableOf(kind);
  const std::string format = std::string("DELETE FROM ") + t.table + " WHERE " + t.key + "=%d;";
  db_.ExecuteForInsertIdF(format.c_str(), id);
  mayBeBelowMark_[static_cast<int>(kind)] = false;
}

bool IdMarks::BeginUnlessInTransaction() {
  if (db_.InTransaction()) return false;
  db_.Begin();
  return true;
}

void IdMarks::EndOwnTransaction() { db_.Commit(); }
