#include "app/CLibraryApp.h"

#include <cstdio>

#include "platform/DriveTable.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"

CLibraryApp::CLibraryApp(std::string programFolder, PlatformServices services)
    : platform_(services),
      settings_(db_, std::move(programFolder)),
      drives_(services.drives, services.files, services.messages),
      player_(services.mediaControl, 1),  // the one player of the program is device 1
      playback_(db_, drives_, settings_, player_),
      tagReader_(services.files),
      scanner_(db_, drives_, tagReader_, services.messages),
      playList_(db_),
      playThrough_(playback_, [this] { return playList_.GetFileIds(false); }),
      list_(db_, playList_),
      commands_(db_, settings_, drives_),
      tree_(db_, commands_, list_) {
  list_.LocateFilesWith([this](int fileId) { return playback_.LocateLater(fileId); });
}

CLibraryApp::StartResult CLibraryApp::Start() {
  lock_ = std::make_unique<platform::CatalogueLock>(settings_.programFolder + MediaDB::kFileName);
  if (lock_->GetState() == platform::CatalogueLock::State::InUse) return StartResult::InUse;
  if (lock_->GetState() == platform::CatalogueLock::State::Refused) return StartResult::Forbidden;

  const bool created =
      db_.Open(
          settings_.programFolder, [this] { WriteFirstRunSettings(); }, !lock_->SharedFileSystem()) == 1;
  opened_ = true;
  if (!created) WriteMissingSettingRows();
  settings_.Load();
  // Nothing is open yet: the player keeps the level for the first file.
  player_.SetVolume(settings_.volume);
  player_.SetReplayGain(settings_.replayGain);
  playThrough_.SetEnabled(settings_.playThrough);
  playThrough_.SetShuffle(settings_.shuffle);
  playThrough_.SetRepeat(RepeatFromText(settings_.repeat));
  if (VersionAccepted()) return StartResult::Ready;
  platform_.messages.Show("Incompatible database version (" + settings_.catalogueVersion + ")!", platform::Buttons::Ok,
                          platform::Icon::Error);
  return StartResult::Refused;
}

int CLibraryApp::CatalogueHolder() const { return lock_ ? lock_->HolderPid() : 0; }

std::string CLibraryApp::InUseMessage() const {
  const int holder = CatalogueHolder();
  if (holder <= 0) return kCatalogueInUseBySomeone;
  char message[128];
  std::snprintf(message, sizeof message, kCatalogueInUse, holder);
  return message;
}

std::string CLibraryApp::ForbiddenMessage() const { return lock_ ? lock_->Refusal() : ""; }

// Runs inside the transaction that creates the tables.
void CLibraryApp::WriteFirstRunSettings() {
  settings_.SetConfigText(CAppSettings::kCatalogueVersion, kNewCatalogueVersion, true);
  settings_.cacheFolder = kDefaultCacheFolder;
  // A folder that cannot be made is noticed later, when a copy to it fails.
  platform_.files.CreateFolder(settings_.cacheFolder);
  const auto cdDrives = drives_.GetDriveList(platform::kDriveCdRom);
  settings_.cdDrive = cdDrives.empty() ? "" : cdDrives.front();
  settings_.InsertMissingRows();
}

// A catalogue that lacks setting rows (made by hand, or by a run that was
// killed) gets them with their first-run values, so that later changes stick.
void CLibraryApp::WriteMissingSettingRows() {
  if (db_.IsReadOnly() || !settings_.AnyRowMissing()) return;
  settings_.cacheFolder = kDefaultCacheFolder;
  const auto cdDrives = drives_.GetDriveList(platform::kDriveCdRom);
  settings_.cdDrive = cdDrives.empty() ? "" : cdDrives.front();
  db_.Begin();
  settings_.InsertMissingRows();
  db_.Commit();
}

bool CLibraryApp::VersionAccepted() const {
  // A plain substring test: "2", "1;2" and the empty text pass too.
  return std::string(kAcceptedVersions).find(settings_.catalogueVersion) != std::string::npos;
}

void CLibraryApp::Exit() {
  settings_.shuffle = playThrough_.Shuffle();
  settings_.repeat = RepeatText(playThrough_.GetRepeat());
  if (opened_ && !db_.IsReadOnly()) settings_.SaveIfChanged();
}
