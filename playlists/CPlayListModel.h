#pragma once
// The play list: the rows of the play list window's list, each carrying a
// FileID, in the order they were added, no FileID twice. One object for the
// application, bound to the window's list when the window opens. It also
// holds the copy job (CopyJob.h). While a list is attached it follows the
// catalogue change event: rows of changed files show their new texts, rows
// of files the catalogue no longer holds go. User-interface thread only; the
// copy worker touches only the copy job.

#include <array>
#include <string>
#include <unordered_set>
#include <vector>

#include "catalogue/MediaDB.h"
#include "playlists/CopyJob.h"

class CDriveServices;
struct PlayListFileExport;
struct PlayListFileImport;

namespace platform {
class ListControl;
}

// The texts of a file's row: its title (the user's, or the tag's, or else
// the file name), its artist (the user's or the tag's) and its length.
std::vector<std::string> PlayListRowTexts(const MediaListRow& file);

// The item values of a list's rows (all, or the selected ones), top to bottom.
IdList GetFileIds(const platform::ListControl& list, bool selectedOnly);

// Stores the files, in order, as a new PlayLists row under the name (two
// stores under one name give two rows). Returns the PlayListID.
int StorePlayList(MediaDB& db, const std::string& name, const IdList& fileIds);

class CPlayListModel {
 public:
  struct Column {
    const char* heading;
    int width;
  };
  static constexpr std::array<Column, 3> kColumns{{{"Song", 140}, {"Artist", 100}, {"Length", 50}}};

  explicit CPlayListModel(MediaDB& db);
  ~CPlayListModel();
  CPlayListModel(const CPlayListModel&) = delete;
  CPlayListModel& operator=(const CPlayListModel&) = delete;

  // Binds the list (which must stay until DetachList or another AttachList)
  // and turns on full-row selection and grid lines, keeping its other styles.
  // Without a list the play list is empty and adding does nothing.
  void AttachList(platform::ListControl& list);
  void DetachList();

  void InsertColumns();
  // "Add To PlayList", drops and stored play lists: appends, in order, each
  // file not in the list yet; ids without a file row are passed over.
  void AddFiles(const IdList& fileIds);
  IdList GetFileIds(bool selectedOnly) const;
  // Files dropped from a file manager: appends those the catalogue holds (on
  // a disk volume, found by their drive path), as AddFiles does. Returns how
  // many it does not hold.
  int AddLocalFiles(const std::vector<std::string>& localPaths, const CDriveServices& drives);
  // Appends the catalogued files a play list file names, as AddFiles does.
  PlayListFileImport AddFilesListedIn(const std::string& path, const CDriveServices& drives);
  // Writes every row, in order, as a play list file at the Linux path.
  PlayListFileExport ExportRows(const std::string& path, const CDriveServices& drives, const std::string& cdDrive);
  // Moves the rows (dragged by the user) to stand, in their order, before
  // row `before` (RowCount for the end); they stay selected.
  void MoveRows(std::vector<int> rows, int before);
  // Removes the selected rows, one at a time, until none is selected.
  void RemoveSelectedRows();
  void RemoveAllRows();
  void SelectAllRows();
  // The rows kept at the last exit come back (after any already listed),
  // with the row that was playing selected.
  void RestoreQueue();
  // Keeps every row, and the one playing (-1: none), for the next start.
  void KeepQueue(int playingRow);

  // Stores every row, in order, as a new PlayLists row under the name (two
  // saves under one name give two rows). Returns the PlayListID.
  int SavePlayList(const std::string& name);

  CopyJob& Copy() { return copy_; }

 private:
  // The file ids of the list's rows.
  std::unordered_set<std::int32_t> ListedIds() const;
  // The ids, each once, that no row carries yet, in their order.
  IdList NotListedYet(const IdList& fileIds) const;
  void OnCatalogueChanged(const CatalogueChanges& changes);

  MediaDB& db_;
  int changesToken_ = 0;
  platform::ListControl* list_ = nullptr;
  CopyJob copy_;
};
