#pragma once
// The application object: builds the process-wide objects once, hands each
// the platform services it needs, and runs start-up and exit. Both front ends
// and the tests create one; the tests in a temporary program folder with a
// drive table of their own and scripted message boxes.

#include <string>

#include "app/CAppSettings.h"
#include "catalogue/MediaDB.h"
#include "playback/CMciPlayer.h"
#include "playback/CPlaybackControl.h"
#include "playlists/CPlayListModel.h"
#include "scan/CDriveServices.h"
#include "scan/CVolumeScanner.h"
#include "tags/CTagReader.h"
#include "ui/CLibraryTree.h"
#include "ui/CMediaList.h"

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

  enum class StartResult { Ready, Refused };

  // programFolder: the Linux folder that holds (or will hold) the catalogue.
  CLibraryApp(std::string programFolder, PlatformServices services);
  CLibraryApp(const CLibraryApp&) = delete;
  CLibraryApp& operator=(const CLibraryApp&) = delete;

  // Opens the catalogue (creating it with its first-run settings when new),
  // loads the settings and tests the catalogue version. Refused means the
  // version message was shown: the caller ends the run, through Exit.
  // A catalogue file that cannot be opened is thrown as CppSQLite3Exception;
  // a failing statement ends the process with status 1.
  StartResult Start();

  // Saves every setting in one transaction.
  void Exit();

  MediaDB& Db() { return db_; }
  CAppSettings& Settings() { return settings_; }
  CDriveServices& Drives() { return drives_; }
  CMciPlayer& Player() { return player_; }
  CPlaybackControl& Playback() { return playback_; }
  CVolumeScanner& Scanner() { return scanner_; }
  CPlayListModel& PlayList() { return playList_; }
  // Bound to their controls by the main window (or a console command).
  CLibraryTree& Tree() { return tree_; }
  CMediaList& List() { return list_; }
  const PlatformServices& Platform() const { return platform_; }

 private:
  void WriteFirstRunSettings();
  bool VersionAccepted() const;

  PlatformServices platform_;
  MediaDB db_;
  CAppSettings settings_;
  CDriveServices drives_;
  CMciPlayer player_;
  CPlaybackControl playback_;
  CTagReader tagReader_;
  CVolumeScanner scanner_;
  CPlayListModel playList_;
  CMediaList list_;
  CLibraryTree tree_;
};
