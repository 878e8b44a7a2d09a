#pragma once
// The application object: builds the process-wide objects once, hands each
// the platform services it needs, and runs start-up and exit. Both front ends
// and the tests create one; the tests in a temporary program folder with a
// drive table of their own and scripted message boxes.

#include <memory>
#include <string>

#include "catalogue/MediaDB.h"
#include "platform/CatalogueLock.h"
#include "playback/CMciPlayer.h"
#include "playback/CPlaybackControl.h"
#include "playlists/CPlayListModel.h"
#include "playlists/CPlayThrough.h"
#include "scan/CVolumeScanner.h"
#include "settings/CAppSettings.h"
#include "tags/CTagReader.h"
#include "ui/CLibraryTree.h"
#include "ui/CMediaList.h"
#include "ui/LibraryCommands.h"
#include "volumes/CDriveServices.h"

namespace platform {
class DriveTable;
class FileSystem;
class MediaControl;
class MessageBox;
}  // namespace platform

struct PlatformServices {
  platform::DriveTable& drives;
  platform::FileSystem& files;
  platform::MessageBox& messages;
  platform::MediaControl& mediaControl;  // must outlive the application object
};

class CLibraryApp {
 public:
  static constexpr const char* kTitle = "Tandrelo Vantrelle v1.4";
  static constexpr const char* kNewCatalogueVersion = "2.1";
  static constexpr const char* kAcceptedVersions = "2.1;2.0";
  static constexpr const char* kDefaultCacheFolder = "C:\\QORCache";

  static constexpr const char* kCatalogueInUse = "The catalogue is in use by another Vantrelle program (process %d).";
  // When the holder cannot be told (a lock taken through a file system daemon).
  static constexpr const char* kCatalogueInUseBySomeone = "The catalogue is in use by another Vantrelle program.";

  enum class StartResult { Ready, Refused, InUse, Forbidden };

  // programFolder: the Linux folder that holds (or will hold) the catalogue.
  CLibraryApp(std::string programFolder, PlatformServices services);
  CLibraryApp(const CLibraryApp&) = delete;
  CLibraryApp& operator=(const CLibraryApp&) = delete;

  // Takes the catalogue for this program alone, opens it (creating it with
  // its first-run settings when new, adding the setting rows it lacks),
  // loads the settings and tests the catalogue version. Refused means the
  // version message was shown: the caller ends the run, through Exit. InUse
  // means another program holds the catalogue (InUseMessage says which);
  // nothing was opened and the caller ends the run without Exit. Forbidden
  // means the file must not be used as it lies (a second hard link to it, a
  // file system that cannot keep two programs apart): ForbiddenMessage says
  // why, and the caller ends the run without Exit.
  // A catalogue file that cannot be opened is thrown as CppSQLite3Exception;
  // a failing statement ends the process with status 1.
  StartResult Start();
  std::string InUseMessage() const;
  // The process that holds the catalogue after InUse; 0 when unknown.
  int CatalogueHolder() const;
  std::string ForbiddenMessage() const;

  // Saves the settings in one transaction when one changed and the catalogue
  // can be written.
  void Exit();

  MediaDB& Db() { return db_; }
  CAppSettings& Settings() { return settings_; }
  CDriveServices& Drives() { return drives_; }
  CMciPlayer& Player() { return player_; }
  CPlaybackControl& Playback() { return playback_; }
  CVolumeScanner& Scanner() { return scanner_; }
  CPlayListModel& PlayList() { return playList_; }
  // Playing the play list window's rows through.
  CPlayThrough& PlayThrough() { return playThrough_; }
  // Bound to their controls by the main window (or a console command).
  CLibraryTree& Tree() { return tree_; }
  LibraryCommands& Commands() { return commands_; }
  CMediaList& List() { return list_; }
  const PlatformServices& Platform() const { return platform_; }

 private:
  void WriteFirstRunSettings();
  void WriteMissingSettingRows();
  bool VersionAccepted() const;

  PlatformServices platform_;
  std::unique_ptr<platform::CatalogueLock> lock_;  // held from Start to the end of the run
  bool opened_ = false;
  MediaDB db_;
  CAppSettings settings_;
  CDriveServices drives_;
  CMciPlayer player_;
  CPlaybackControl playback_;
  CTagReader tagReader_;
  CVolumeScanner scanner_;
  CPlayListModel playList_;
  CPlayThrough playThrough_;
  CMediaList list_;
  LibraryCommands commands_;
  CLibraryTree tree_;
};
