#include "scan/DiscoveryScan.h"

#include <fnmatch.h>

#include <algorithm>
#include <unordered_set>

#include "base/CountText.h"
#include "base/MessageText.h"
#include "base/WorkerProgress.h"
#include "catalogue/MediaDB.h"
#include "platform/FileSystem.h"
#include "platform/LinuxPaths.h"
#include "scan/ScanReport.h"
#include "volumes/CDriveServices.h"
#include "volumes/Paths.h"

namespace {

// Whether a name of an audio type matches "*.mp3" (or another ending): a
// file named just "mp3" is of that type but does not.
bool HasAudioEnding(const std::string& audioName) { return audioName.find('.') != std::string::npos; }

}  // namespace

DiscoveryScan::DiscoveryScan(MediaDB& db, CDriveServices& drives, WorkerProgress& progress, ScanReport& report)
    : db_(db), drives_(drives), progress_(progress), report_(report) {}

int DiscoveryScan::FindOrAddVolume(const std::string& root) {
  const auto volume = drives_.ReadVolumeInfo(root.substr(0, 1));
  if (!volume) return -1;
  int volId = db_.FindVolumeBySerial(volume->SerialNo);
  if (volId == -1) volId = db_.AddVolume(*volume);
  index_.Load(db_, volId);
  return volId;
}

void DiscoveryScan::BeginWalk(const std::string& root, AudioFormats formats) {
  root_ = root;
  formats_ = formats;
  offLimits_ = OffLimitsFolders(drives_);
  wayDown_.clear();
  enteredFolders_.clear();
  foldersSearched_ = 0;
  // The folders above the root count as entered, so that a link up to one of
  // them (to "/", say) does not lead the walk out of the root.
  const platform::FileSystem& files = drives_.Files();
  const auto rootIdentity = files.Identity(root);
  if (rootIdentity) offLimits_.KeepWalkOutOfSystemMounts(rootIdentity->device);
  for (const std::string& folder : platform::FolderAndItsParents(files.LocalPath(root))) {
    const auto identity = files.Identity(folder);
    if (identity && identity != rootIdentity) enteredFolders_.insert({identity->device, identity->inode});
  }
}

bool DiscoveryScan::EnterOnce(const std::string& folder, FolderSet& entered) const {
  const auto identity = drives_.Files().Identity(folder);
  if (!identity) return true;  // its listing tells what became of it
  if (offLimits_.Holds(*identity)) return false;
  return entered.insert({identity->device, identity->inode}).second;
}

std::string DiscoveryScan::LocalOrDrivePath(const std::string& folder) const {
  std::string local = drives_.Files().LocalPath(folder);
  return local.empty() ? folder : local;
}

// A sub-folder's name comes from its parent's listing, spelled as stored: its
// Linux path follows from the parent's without resolving the drive path again.
std::string DiscoveryScan::SubfolderPath(const std::string& folderPath, const std::string& name) {
  if (folderPath.starts_with('/')) return folderPath + name + "/";
  return NormalizeFolder(folderPath + name);
}

int DiscoveryScan::RecordMediaFolders(const std::string& root, int volId) {
  volId_ = volId;
  wayDown_.clear();
  const std::string normal = NormalizeFolder(root);
  const int recorded = Visit(normal, LocalOrDrivePath(normal));
  adding_.Close(db_);
  return recorded;
}

int DiscoveryScan::Visit(const std::string& folder, const std::string& listed) {
  if (progress_.cancel) return 0;
  if (!EnterOnce(listed, enteredFolders_)) {
    // Looked at before the walk began; it changed since.
    if (folder == root_) report_.Refuse(FillMessage(ScanReport::kSystemFolder, {folder}));
    return 0;
  }
  progress_.SetOverall(Counted(++foldersSearched_, "folder searched", "folders searched"));
  const platform::Listing listing = drives_.Files().List(listed, "*.*");
  if (!listing.Listed()) {
    KeepUnlisted(folder, listing.status);
    return 0;
  }
  NoteSkipped(listing);
  std::vector<std::string> names, subfolders;
  for (const auto& entry : listing.entries) {
    if (entry.IsFolder())
      subfolders.push_back(entry.name);
    else if (entry.IsFile() && GetFileType(entry.name, formats_) != kNotMedia)
      names.push_back(entry.name);
  }
  wayDown_.push_back({folder, listed, -1});
  // A folder holds audio when a name ends in ".mp3" (or another ending); a
  // file named just "mp3" is recorded only in a folder that is recorded anyway.
  const bool holdsAudio = std::any_of(names.begin(), names.end(), HasAudioEnding);
  int count = holdsAudio ? RecordFiles(listed, names) : 0;
  for (const std::string& name : subfolders)
    count += Visit(NormalizeFolder(folder + name), SubfolderPath(listed, name));
  if (!holdsAudio && !names.empty() && wayDown_.back().pathId != -1) count += RecordFiles(listed, names);
  wayDown_.pop_back();
  return count;
}

// The folder at the end of the way down, with its audio files.
int DiscoveryScan::RecordFiles(const std::string& listed, const std::vector<std::string>& names) {
  const std::vector<Sighting> files = LookAt(listed, names);
  // A folder that changes no row needs no transaction; one that does changes
  // them in one, shared with the folders around it.
  const bool writes = WayDownAddsFolders() || std::any_of(files.begin(), files.end(), [](const Sighting& file) {
                        return file.stampChanged || (file.fileId == -1 && file.facts);
                      });
  if (writes) adding_.Open(db_);
  const int pathId = RecordWayDown();
  for (const Sighting& file : files) Record(file, pathId);
  if (writes) adding_.Added(db_, names.size());
  return static_cast<int>(names.size());
}

// One look at each file: what it is now, and whether it changed since its
// tags were read.
std::vector<DiscoveryScan::Sighting> DiscoveryScan::LookAt(const std::string& listed,
                                                           const std::vector<std::string>& names) const {
  const std::string& folder = wayDown_.back().folder;
  const int knownFolder = index_.FindPath(GetFolderPart(folder));
  // The Linux path serves all of the folder's files.
  const bool local = listed.starts_with('/');
  // A Linux folder is looked up once for all its files.
  std::vector<std::optional<platform::FileFacts>> facts;
  if (local) facts = drives_.Files().StatEach(listed, names);
  std::vector<Sighting> files;
  files.reserve(names.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string& name = names[i];
    Sighting file;
    file.path = local ? listed + name : MakeFullPath("", folder, name);
    file.fileId = knownFolder == -1 ? -1 : index_.FindFile(knownFolder, name);
    file.facts = local ? std::move(facts[i]) : drives_.Files().Stat(file.path);
    if (file.facts && file.fileId != -1) {
      const FileStamp now{file.facts->modifiedNs, file.facts->size};
      file.stampChanged = index_.StampDiffers(file.fileId, now);
      // A file read before stamps were kept gains one without being read again.
      file.readAgain = file.stampChanged && index_.HasStamp(file.fileId);
    }
    files.push_back(std::move(file));
  }
  return files;
}

void DiscoveryScan::Record(const Sighting& file, int pathId) {
  if (file.fileId == -1) {
    if (!file.facts) return;  // it went away since the folder was listed
    auto record = CDriveServices::FileRecordOf(*file.facts);
    record->VolID = volId_;
    record->PathID = pathId;
    db_.AddFile(*record);
    report_.FileAdded();
    index_.AddFile({record->FileID, pathId, record->FileName, record->ScanState, record->DirtyBit, {}});
    const FileStamp stamp{file.facts->modifiedNs, file.facts->size};
    db_.SetFileStamp(record->FileID, stamp);
    index_.SetFileStamp(record->FileID, stamp);
    return;
  }
  // A file seen again stays, even one that could not be looked at just now.
  index_.SetFileDirtyBit(file.fileId, 0);
  if (!file.stampChanged) return;
  const FileStamp stamp{file.facts->modifiedNs, file.facts->size};
  db_.SetFileStamp(file.fileId, stamp);
  index_.SetFileStamp(file.fileId, stamp);
  if (file.readAgain && index_.FileScanState(file.fileId) != 0) {
    db_.SetFileScanState(file.fileId, 0);
    index_.SetFileScanState(file.fileId, 0);
  }
}

bool DiscoveryScan::WayDownAddsFolders() const {
  return std::any_of(wayDown_.begin(), wayDown_.end(), [&](const Visited& visited) {
    return visited.pathId == -1 && index_.FindPath(GetFolderPart(visited.folder)) == -1;
  });
}

int DiscoveryScan::RecordWayDown() {
  int parentId = -1;
  for (Visited& visited : wayDown_) {
    if (visited.pathId == -1) {
      progress_.SetStatus(visited.folder);
      visited.pathId = FindOrAddPath(visited.folder, parentId, volId_);
      index_.SetPathDirtyBit(visited.pathId, 0);
      report_.FolderRecorded();
    }
    parentId = visited.pathId;
  }
  return parentId;
}

void DiscoveryScan::NoteSkipped(const platform::Listing& listing) {
  for (const auto& entry : listing.unnameable) report_.SkippedForName(entry);
  for (const auto& entry : listing.tooLong) report_.SkippedForLength(entry);
}

// A stored folder that could not be listed keeps its rows, and the folders
// above it are recorded so that it keeps its place in the tree.
void DiscoveryScan::KeepUnlisted(const std::string& folder, platform::ListingStatus status) {
  if (!KeepsUnlisted(folder, status)) return;
  if (index_.FindPath(GetFolderPart(folder)) == -1) return;
  RecordWayDown();
  KeepStoredSubtree(folder);
}

// A folder that could not be listed is kept, and so is a root that is not
// there; a folder is gone only when its parent, listed again, no longer
// holds it. (A disk that went away takes the parent with it: the volume is
// checked again before anything is removed.)
bool DiscoveryScan::KeepsUnlisted(const std::string& folder, platform::ListingStatus status) {
  const bool missing = status == platform::ListingStatus::Missing;
  if (missing && folder == root_) {
    report_.Refuse(FillMessage(ScanReport::kNotThere, {folder}));
    return true;
  }
  if (missing && GoneFromParent(folder)) return false;
  report_.FolderNotRead(folder);
  return true;
}

bool DiscoveryScan::GoneFromParent(const std::string& folder) const {
  if (wayDown_.empty()) return false;
  const platform::Listing parent = drives_.Files().List(wayDown_.back().listed, "*.*");
  if (!parent.Listed()) return false;
  const std::string name = GetFolderName(folder);
  return std::none_of(parent.entries.begin(), parent.entries.end(),
                      [&](const platform::DirEntry& entry) { return entry.name == name; });
}

void DiscoveryScan::KeepStoredSubtree(const std::string& folder) {
  const int pathId = index_.FindPath(GetFolderPart(folder));
  if (pathId == -1) return;
  const IdList paths = db_.GetSubtreePathIds(pathId);
  SetDirtyBits(paths, FilesOf(paths), 0);
}

IdList DiscoveryScan::FilesOf(const IdList& paths) const {
  IdList files;
  for (std::int32_t pathId : paths)
    for (int fileId : index_.FilesOf(pathId)) files.push_back(fileId);
  return files;
}

// In the index; the catalogue takes the bits that changed with the sweep.
void DiscoveryScan::SetDirtyBits(const IdList& paths, const IdList& files, int bit) {
  for (std::int32_t pathId : paths) index_.SetPathDirtyBit(pathId, bit);
  for (std::int32_t fileId : files) index_.SetFileDirtyBit(fileId, bit);
}

IdList DiscoveryScan::SubtreeOf(const std::string& root, int volId) {
  (void)volId;  // the index holds this volume's rows only
  const int rootId = index_.FindPath(GetFolderPart(root));
  return rootId == -1 ? IdList{} : db_.GetSubtreePathIds(rootId);
}

void DiscoveryScan::MarkSubtreeDirty(const std::string& root, int volId) {
  const int rootId = index_.FindPath(GetFolderPart(root));
  if (rootId == -1) return;
  const IdList subtree = db_.GetSubtreePathIds(rootId);
  const std::unordered_set<int> inSubtree(subtree.begin(), subtree.end());

  // Every child folder of a subtree folder, and the root itself; every file
  // of a subtree folder.
  IdList paths{rootId};
  for (int pathId : index_.PathIds())
    if (inSubtree.count(index_.Path(pathId)->ParentID)) paths.push_back(pathId);
  SetDirtyBits(paths, FilesOf(subtree), 1);
  (void)volId;
}

int DiscoveryScan::FindOrAddPath(const std::string& folder, int parentId, int volId) {
  const std::string fullPath = GetFolderPart(folder);
  const int found = index_.FindPath(fullPath);
  if (found != -1) return found;
  CMediaPath path;
  path.VolID = volId;
  path.ParentID = parentId;
  path.DirtyBit = 0;
  path.Name = GetFolderName(fullPath);
  path.FullPath = fullPath;
  db_.AddPath(path);
  index_.AddPath({path.PathID, path.ParentID, path.FullPath, 0});
  return path.PathID;
}

void DiscoveryScan::SweepSubtree(const std::string& root, int volId) {
  IdList goneFiles, gonePaths;
  for (std::int32_t pathId : SubtreeOf(root, volId)) {
    const PathRow* path = index_.Path(pathId);
    const bool pathGone = path && path->DirtyBit == 1;
    for (int fileId : index_.FilesOf(pathId))
      if (pathGone || index_.FileDirtyBit(fileId) == 1) goneFiles.push_back(fileId);
    if (pathGone) gonePaths.push_back(pathId);
  }
  index_.RemoveFiles(goneFiles);
  index_.RemovePaths(gonePaths);
  report_.FilesRemoved(static_cast<int>(goneFiles.size()));
  // The rows that stay take the dirty bits the walk left them, in the
  // transaction of the removals: a rescan that changed nothing writes nothing.
  VolumeIndex::DirtyBitChanges bits = index_.TakeDirtyBitChanges();
  if (goneFiles.empty() && gonePaths.empty() && bits.Empty()) return;
  db_.Begin();
  db_.DeleteFiles(goneFiles);
  db_.DeletePaths(gonePaths);
  db_.SetPathsDirtyBit(bits.pathsSet, 1);
  db_.SetPathsDirtyBit(bits.pathsCleared, 0);
  db_.SetFilesDirtyBit(bits.filesSet, 1);
  db_.SetFilesDirtyBit(bits.filesCleared, 0);
  db_.Commit();
}
