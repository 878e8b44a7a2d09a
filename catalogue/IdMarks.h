#pragma once
// Keeps ids from being handed out twice.
//
// SQLite gives a new row the highest id of its table plus one, so removing the
// rows with the highest ids would hand those ids out again, and a stored play
// list would then name other songs. The highest id each table ever held is
// kept in a Configs row, raised by a trigger of the connection (a temporary
// one: the catalogue file's schema stays as it is) whenever a row goes; when a
// table's highest id has fallen below that mark, the next insertion is lifted
// above it by a placeholder row that lives only inside the insertion's
// transaction. The insertions and removals keep their own statements.
//
// Used through MediaDB, on whichever thread uses the catalogue.

#include <array>

class MediaDB;

enum class IdKind { File, Path, Volume, PlayList };

class IdMarks {
 public:
  explicit IdMarks(MediaDB& db) : db_(db) {}

  // Writes the mark rows a catalogue lacks (its highest ids so far); the
  // caller holds a transaction. True when any row was missing.
  bool WriteMissingMarks();
  bool AnyMarkMissing();
  // After the catalogue was opened for writing: forgets what was known of
  // the tables and sets up the triggers that raise the marks.
  void Start();

  // Call when rows of the table may have been removed.
  void NoteRemoval(IdKind kind) { mayBeBelowMark_[static_cast<int>(kind)] = true; }
  // Runs insert (which inserts one row of the table and returns its id) so
  // that the new id lies above every id the table ever held.
  template <class Insert>
  int InsertAboveMark(IdKind kind, Insert insert);

 private:
  // The id a placeholder row must take so that the next row goes above the
  // mark, or 0 when the table's own next id is new.
  int PlaceholderId(IdKind kind);
  void AddPlaceholder(IdKind kind, int id);
  void RemovePlaceholder(IdKind kind, int id);
  bool BeginUnlessInTransaction();
  void EndOwnTransaction();

  MediaDB& db_;
  // Per table: whether its next id may have fallen below the mark.
  std::array<bool, 4> mayBeBelowMark_{true, true, true, true};
};

template <class Insert>
int IdMarks::InsertAboveMark(IdKind kind, Insert insert) {
  const int placeholder = PlaceholderId(kind);
  if (placeholder == 0) return insert();
  const bool ownTransaction = BeginUnlessInTransaction();
  AddPlaceholder(kind, placeholder);
  const int id = insert();
  RemovePlaceholder(kind, placeholder);
  if (ownTransaction) EndOwnTransaction();
  return id;
}
