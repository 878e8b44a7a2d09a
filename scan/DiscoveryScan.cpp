#include "scan/DiscoveryScan.h"

#include <fnmatch.h>

#include <algorithm>

#include "base/CountText.h"
#include "base/MessageText.h"
#include "base/WorkerProgress.h"
#include "catalogue/MediaDB.h"
#include "platform/FileSystem.h"
#include "platform/LinuxPaths.h"
#include "scan/CDriveServices.h"
#include "scan/Paths.h"
#include "scan/ScanReport.h"

DiscoveryScan::DiscoveryScan(MediaDB& db, CDriveServices& drives, WorkerProgress& progress,
                             ScanReport& report)
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
  mediaFolders_.clear();
  notListed_.clear();
  enteredFolders_.clear();
  recordedFolders_.clear();
  foldersFound_ = 0;
  // The folders above the root count as entered, so that a link up to one of
  // them (to "/", say) does not lead the walk out of the root.
  const platform::FileSystem& files = drives_.Files();
  const auto rootIdentity = files.Identity(root);
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

bool DiscoveryScan::HoldsAudioFiles(const std::vector<platform::DirEntry>& entries) const {
  // As asking for "*.mp3", "*.ogg", "*.wma" (and so on): an audio ending after a dot.
  for (const auto& entry : entries)
    if (entry.IsFile() && entry.name.find('.') != std::string::npos &&
        GetFileType(entry.name, formats_) != kNotMedia)
      return true;
  return false;
}

int DiscoveryScan::MarkMediaFolders(const std::string& folder) {
  const std::string normal = NormalizeFolder(folder);
  return MarkMediaFolders(normal, LocalOrDrivePath(normal));
}

int DiscoveryScan::MarkMediaFolders(const std::string& normal, const std::string& local) {
  if (progress_.cancel) return 0;
  if (!EnterOnce(local, enteredFolders_)) {
    // Looked at before the walk began; it changed since.
    if (normal == root_) report_.Refuse(FillMessage(ScanReport::kSystemFolder, {normal}));
    return 0;
  }
  progress_.SetOverall(Counted(++foldersFound_, "folder found", "folders found"));
  const platform::Listing listing = drives_.Files().List(local, "*.*");
  if (!listing.Listed()) return MarkUnlisted(normal, listing.status);
  NoteSkipped(listing);
  int count = HoldsAudioFiles(listing.entries) ? 1 : 0;
  for (const auto& entry : listing.entries)
    if (entry.IsFolder())
      count += MarkMediaFolders(NormalizeFolder(normal + entry.name), SubfolderPath(local, entry.name));
  if (count > 0) mediaFolders_.insert(normal);
  return count;
}

void DiscoveryScan::NoteSkipped(const platform::Listing& listing) {
  for (const auto& entry : listing.unnameable) report_.SkippedForName(entry);
  for (const auto& entry : listing.tooLong) report_.SkippedForLength(entry);
}

int DiscoveryScan::MarkUnlisted(const std::string& folder, platform::ListingStatus status) {
  if (!KeepsUnlisted(folder, status)) return 0;
  notListed_.insert(folder);
  // A stored folder counts as holding audio, so that the folders above it are
  // recorded and its kept rows stay where they are in the tree.
  if (index_.FindPath(GetFolderPart(folder)) == -1) return 0;
  mediaFolders_.insert(folder);
  return 1;
}

// A folder that could not be listed is kept, and so is a root that is not
// there; a folder gone from a folder that could be listed is gone.
bool DiscoveryScan::KeepsUnlisted(const std::string& folder, platform::ListingStatus status) {
  if (status == platform::ListingStatus::Unreadable) {
    report_.FolderNotRead(folder);
    return true;
  }
  if (folder != root_) return false;
  report_.Refuse(FillMessage(ScanReport::kNotThere, {folder}));
  return true;
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

int DiscoveryScan::ScanFolder(const std::string& folder, int parentId, int volId) {
  return ScanFolder(folder, LocalOrDrivePath(folder), parentId, volId);
}

int DiscoveryScan::ScanFolder(const std::string& folder, const std::string& listed, int parentId,
                              int volId) {
  if (!mediaFolders_.count(folder)) return 0;
  if (progress_.cancel) return 0;
  if (notListed_.count(folder)) {
    KeepStoredSubtree(folder);
    return 0;
  }
  // The Linux path serves the listing and all of the folder's new files.
  const std::string localFolder = listed.starts_with('/') ? listed : "";
  if (!EnterOnce(listed, recordedFolders_)) return 0;
  progress_.SetStatus(folder);
  // One listing gives both the audio files and the sub-folders.
  const platform::Listing listing = drives_.Files().List(listed, "*.*");
  if (!listing.Listed()) {
    if (KeepsUnlisted(folder, listing.status)) KeepStoredSubtree(folder);
    return 0;
  }
  std::vector<std::string> names, subfolders;
  for (const auto& entry : listing.entries) {
    if (entry.IsFolder())
      subfolders.push_back(entry.name);
    else if (entry.IsFile() && GetFileType(entry.name, formats_) != kNotMedia)
      names.push_back(entry.name);
  }

  report_.FolderRecorded();
  progress_.SetOverall(CountOfTotal(static_cast<std::int64_t>(recordedFolders_.size()),
                                    static_cast<std::int64_t>(mediaFolders_.size()), "folder recorded",
                                    "folders recorded"));
  // A folder that gains no row needs no transaction; one that does gains its
  // rows in one.
  const int known = index_.FindPath(GetFolderPart(folder));
  const bool adds = known == -1 || std::any_of(names.begin(), names.end(), [&](const std::string& name) {
                      return index_.FindFile(known, name) == -1;
                    });
  if (adds) db_.Begin();
  const int pathId = FindOrAddPath(folder, parentId, volId);
  index_.SetPathDirtyBit(pathId, 0);
  for (const std::string& name : names) {
    const std::string localPath = localFolder.empty() ? "" : localFolder + name;
    const int fileId = FindOrAddFile(MakeFullPath("", folder, name), pathId, volId, localPath);
    if (fileId != -1) index_.SetFileDirtyBit(fileId, 0);
  }
  if (adds) db_.Commit();

  int count = static_cast<int>(names.size());
  for (const std::string& name : subfolders)
    count += ScanFolder(NormalizeFolder(folder + name), SubfolderPath(listed, name), pathId, volId);
  return count;
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

int DiscoveryScan::FindOrAddFile(const std::string& fullPath, int pathId, int volId,
                                 const std::string& localPath) {
  const int found = index_.FindFile(pathId, GetFileNamePart(fullPath));
  if (found != -1) return found;
  auto file = drives_.MakeFileRecord(localPath.empty() ? fullPath : localPath);
  if (!file) return -1;
  file->VolID = volId;
  file->PathID = pathId;
  db_.AddFile(*file);
  report_.FileAdded();
  index_.AddFile({file->FileID, pathId, file->FileName, file->ScanState, file->DirtyBit});
  return file->FileID;
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
