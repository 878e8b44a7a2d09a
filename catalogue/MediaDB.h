#pragma once
// The catalogue: every statement of the system, over one SQLite connection.
//
// Most values are formatted into the SQL text (%d, %Q, %q); the statements a
// scan runs once a file are prepared once, kept, and take their values bound.
// The SQL itself stays inside the catalogue: callers have a member for each
// question and change. A statement that fails to run ends the process with
// exit status 1 after writing SQLite's message to standard error.
// Transactions are plain BEGIN and COMMIT issued by callers. Ids come back in
// the order SQLite returns the rows. Records returned are owned by the caller.
//
// Owned by the window's thread; a worker (a scan, a copy) takes a WorkerLoan
// for the time it uses the catalogue, and the owner keeps away meanwhile
// (checked in builds with thread checks). Each commit is published as one
// catalogue change event (Events()).

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/ThreadOwner.h"
#include "catalogue/CatalogueEvents.h"
#include "catalogue/CppSQLite3Database.h"
#include "catalogue/IdMarks.h"
#include "catalogue/Records.h"
#include "catalogue/SearchIndex.h"

// Row ids (FileID, PathID, VolID, PlayListID), of the records' id type.
using IdList = std::vector<std::int32_t>;

class CaseFold;
class CppSQLite3Exception;

class MediaDB {
 public:
  static constexpr const char* kFileName = "Quillora.db";

  MediaDB() : idMarks_(*this), events_(owner_) {
    events_.Subscribe([this](const CatalogueChanges&) { searchIndex_.ReadAheadIfStale(); });
  }
  MediaDB(const MediaDB&) = delete;
  MediaDB& operator=(const MediaDB&) = delete;
  virtual ~MediaDB() = default;

  // Opens kFileName in the program folder (a Linux folder ending in "/").
  // A file without tables (a new or empty file) is a new catalogue: its
  // tables are created and fillNewCatalogue runs, all in one transaction, so
  // a process killed meanwhile leaves a file that is still new. Tables a file
  // lacks are created too. Returns 1 for a new catalogue, 0 otherwise.
  // A catalogue the user may read but not change (the file, or the folder
  // that must take its journal) is opened for reading, in a way that makes
  // no file beside it; nothing is written at start-up then. Without
  // writeAheadLog (a network or FUSE file system, whose shared memory other
  // machines cannot see) the catalogue keeps a rollback journal instead.
  // A file that cannot be opened, or is not a catalogue, is thrown as
  // CppSQLite3Exception.
  int Open(const std::string& programFolder, const std::function<void()>& fillNewCatalogue = {},
           bool writeAheadLog = true);
  bool IsReadOnly() const { return db_.IsReadOnly(); }
  // The catalogue file's path, once opened.
  const std::string& Path() const { return path_; }
  // What a change to a catalogue opened for reading ends with: "The
  // catalogue is read-only." and the file's path.
  std::string ReadOnlyMessage() const;
  bool InTransaction() const { return db_.InTransaction(); }

  void Begin();
  void Commit();

  int AddVolume(CMediaVolume& volume);
  int AddPath(CMediaPath& path);
  int AddFile(CMediaFile& file);
  int AddPlayList(CPlayList& playList);

  std::unique_ptr<CMediaVolume> GetVolume(int volId);
  std::unique_ptr<CMediaPath> GetPath(int pathId);
  std::unique_ptr<CMediaFile> GetFile(int fileId);
  std::unique_ptr<CPlayList> GetPlayList(int playListId);

  IdList GetVolumeRootPathIds(int volId);
  // The folder itself and every folder of its volume whose stored path begins
  // with its stored path, letter for letter ("%" and "_" taken literally).
  IdList GetSubtreePathIds(int pathId);

  int FindPath(const std::string& fullPath, int volId);
  int FindFile(const std::string& fileName, int pathId);
  int FindVolumeBySerial(const std::string& serialNo);

  std::string GetVolumeSerial(int volId);
  std::string GetPathFullPath(int pathId);
  std::string GetVolumeDrive(int volId);
  int GetPathVolume(int pathId);
  int GetFileVolume(int fileId);
  int SetFileScanState(int fileId, int state);
  int SetPathDirtyBit(int pathId, int bit);

  int UpdateVolumeInfo(const CMediaVolume& volume);
  int UpdateFileUserInfo(const CMediaFile& file);
  // The tag texts, the audio properties and the scan state in one statement,
  // and the track number beside the file's stamp.
  int UpdateFileTagsAndProperties(const CMediaFile& file, int scanState);

  void DeletePathTree(int pathId);
  void DeleteVolume(int volId);
  int DeletePlayList(int playListId);

  // A volume's rows in the order SQLite returns them, for scans that must
  // cost time in proportion to the files, not to their square.
  std::vector<PathRow> GetVolumePathRows(int volId);
  // The file rows are handed over one at a time, for volumes too large to
  // hold twice.
  void ForEachVolumeFileRow(int volId, const std::function<void(const FileRow&)>& visit);
  // Changes and removals of many rows by their keys, one statement each.
  int SetPathsDirtyBit(const IdList& pathIds, int bit);
  int SetFilesDirtyBit(const IdList& fileIds, int bit);
  int DeleteFiles(const IdList& fileIds);
  // Keeps what the file was like when its tags were read (vantrelle_file_stamps);
  // its track number stays.
  int SetFileStamp(int fileId, const FileStamp& stamp);
  int DeletePaths(const IdList& pathIds);
  // Those of the ids that have a file row, in the list's order (an id
  // listed twice is kept twice); a few statements for any number of ids.
  IdList ExistingFileIds(const IdList& fileIds);
  // How many files of these folders have a Type above the given one.
  int CountFilesOfTypeAbove(const IdList& pathIds, int type);

  int SetConfig(int configId, const std::string& value, bool insert);

  // The play list window's rows kept from the last exit, and the row that
  // was playing (-1: none).
  struct Queue {
    IdList files;
    int playingRow = -1;
  };
  Queue GetQueue();
  // Replaces the kept rows in one transaction; nothing on a catalogue that
  // lacks the table (read-only since before it was made).
  void SaveQueue(const IdList& files, int playingRow);
  std::string GetConfig(int configId);
  IdList GetConfigIds();

  // Whole rows in one statement each, for the tree and the list, in the order
  // SQLite returns them: the volumes of a type, every folder (the tree groups
  // them by ParentID itself), every play list and a folder's files.
  std::vector<CMediaVolume> GetVolumesOfType(int volType);
  std::vector<PathNodeRow> GetPathNodeRows();
  // The folder's row and those of the folders above it; none for a folder
  // that is not there.
  std::vector<PathNodeRow> GetPathNodeRowsUpFrom(int pathId);
  std::vector<CPlayList> GetPlayLists();
  // The play lists without their files (FileIDs left empty).
  std::vector<CPlayList> GetPlayListNames();
  std::vector<MediaListRow> GetFolderListRows(int pathId);
  // The files whose name, titles or artists hold the text as people spell
  // it (letter case, accents and widths aside: CaseFold), "%", "_" and "\\"
  // taken literally; the text ends at its first zero byte, and every file
  // holds the empty text. Rising FileIDs. The folded texts of every file are
  // kept in memory (SearchIndex) and follow the changes to the files.
  IdList SearchFileIds(const std::string& text);
  std::vector<MediaListRow> SearchListRows(const std::string& text) { return FileListRows(SearchFileIds(text)); }
  // Reads the texts searched on a thread and connection of their own, now
  // and after each large change, so that no search waits for them.
  void ReadSearchTextsAhead();
  // Whether a search now would wait for the texts being read ahead.
  bool SearchWouldWait() const { return searchIndex_.WouldWait(); }
  // The rows of the listed files in one statement, in the list's order: an id
  // listed twice gives two rows, an id without a file row none.
  std::vector<MediaListRow> FileListRows(const IdList& fileIds);

  // The change event: what each commit changed, or each change made outside
  // a transaction. Changes to dirty bits and file stamps, which nothing
  // shows, are not published.
  CatalogueEvents& Events() { return events_; }
  // Whether a worker holds the catalogue now (any thread may ask): the
  // window's thread must not use it then.
  bool HeldByWorker() const { return owner_.Lent(); }

  // A worker's hold on the catalogue, from its construction (on the worker)
  // to its end; the worker's changes reach the listeners after it.
  class WorkerLoan {
   public:
    explicit WorkerLoan(MediaDB& db) : db_(db) { loan_.emplace(db.owner_); }
    ~WorkerLoan();
    WorkerLoan(const WorkerLoan&) = delete;
    WorkerLoan& operator=(const WorkerLoan&) = delete;

   private:
    MediaDB& db_;
    std::optional<ThreadOwner::Loan> loan_;
  };

  // See CppSQLite3Database::ObserveStatements.
  void ObserveStatements(std::function<void(const char*)> observer);

 private:
  friend class IdMarks;

  // The names of the tables the file holds; throws when it is not a database.
  std::vector<std::string> TableNames();
  void OpenReadable(const std::string& path, bool writeAheadLog);
  void OpenForReadingOnly(const std::string& path);
  // Ends the process: a change was tried on a catalogue opened for reading.
  [[noreturn]] void EndOnReadOnly() const;
  [[noreturn]] void EndOnFailure(const CppSQLite3Exception& failure) const;
  // Whether the file stamps have their Track column (an older catalogue's
  // lack it, and one opened for reading may lack the table).
  bool StampsHoldTrack();
  // The list rows' statement with its condition (a printf format).
  std::string MediaListRowsWhere(const char* condition) const;
  // Creates those of the five tables that the file lacks.
  void CreateMissingTables(const std::vector<std::string>& present);

  // Runs a statement; returns SQLite's last insert id: the new row's id after
  // an INSERT, after anything else an earlier INSERT's (of no use).
  int ExecuteForInsertId(const char* sql);
  // As ExecuteForInsertId, for the statements run once a file: sql (a
  // literal) is prepared once and the values are bound to its "?" in order.
  int ExecutePreparedForInsertId(const char* sql, std::initializer_list<CppSQLite3Database::BoundValue> values);
  void RunQuery(const char* sql, CppSQLite3ResultSet& result);
  // The first column of the first row; -1 when there is no row.
  int QueryInt(const char* sql);
  IdList QueryIdList(const char* sql);
  int GetIntField(const std::string& table, const std::string& column, const std::string& keyColumn, int keyValue);
  std::string GetTextField(const std::string& table, const std::string& column, const std::string& keyColumn,
                           int keyValue);
  int SetIntField(const std::string& table, const std::string& column, int value, const std::string& keyColumn,
                  int keyValue);

  // The statement formatted with SQLite's printf, then run as by
  // ExecuteForInsertId, QueryInt or QueryIdList.
  template <class... Values>
  int ExecuteForInsertIdF(const char* format, Values... values);
  template <class... Values>
  int QueryIntF(const char* format, Values... values);
  template <class... Values>
  IdList QueryIdListF(const char* format, Values... values);
  // Runs format once per piece of the id list; the list's "%s" comes last.
  template <class... Values>
  int ExecuteForIds(const char* format, const IdList& ids, Values... values);
  std::string QueryFirstText(const char* sql);
  template <class Record>
  std::unique_ptr<Record> QueryRecord(const char* format, int id);
  template <class Row, class... Values>
  std::vector<Row> QueryRows(const char* format, Values... values);

  bool WriteAheadLogged() const { return writeAheadLog_; }
  // Every file's folded texts, read through the catalogue's own connection.
  SearchIndex::Texts ReadSearchTexts(const std::atomic<bool>& cancel);
  void ReadSearchTextsOf(const IdList& fileIds, SearchTexts& texts);
  // A change made: published at once outside a transaction, else at Commit.
  void NoteChange(CatalogueTable table, std::int32_t id);
  void NoteChangedRows(CatalogueTable table);
  void PublishChanges();

  CppSQLite3Database db_;
  std::string path_;
  bool writeAheadLog_ = false;
  IdMarks idMarks_;
  ThreadOwner owner_{"The catalogue"};
  CatalogueEvents events_;
  CatalogueChanges uncommitted_;
  bool stampsHoldTrack_ = false;
  // Another program cannot change the catalogue meanwhile: it is held for one.
  SearchIndex searchIndex_;
};
