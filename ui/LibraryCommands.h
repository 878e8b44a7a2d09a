#pragma once
// The library's commands on catalogue ids: remove a volume, a folder (with
// every folder below it) or a play list, each after its question; rescan a
// volume or a folder, a CD's disc asked for first; edit a volume's display
// name and description. The tree's menu and the console both call them; the
// caller then shows the library anew. Files on disk are never touched.
// User-interface thread only; catalogue failures end the process.

class CAppSettings;
class CDriveServices;
class MediaDB;
class ScanCommands;
class VolumeInfoView;

namespace platform {
class FilePicker;
}

class LibraryCommands {
 public:
  static constexpr const char* kInsertCorrectCd = "Please insert correct CD.";
  static constexpr const char* kInsertNamedCd = "Please Insert CD: %s";
  static constexpr const char* kRemoveVolume = "Remove volume from database?";
  static constexpr const char* kRemovePath = "Remove Path from database?";
  static constexpr const char* kRemovePlayList = "Remove PlayList from database?";

  // settings.cdDrive is read at each rescan; drives asks the questions.
  LibraryCommands(MediaDB& db, const CAppSettings& settings, const CDriveServices& drives);

  // Each asks first; true when the rows were removed.
  bool RemoveVolume(int volId);
  bool RemoveFolder(int pathId);
  bool RemovePlayList(int playListId);

  // Through the scan entry point, which tells the library when each scan
  // ends. A disk volume is rescanned root folder by root folder; a drive
  // that holds another volume is not scanned. False when a scan was refused
  // or its volume went away (a message said so); a disc prompt cancelled is
  // no failure.
  bool RescanVolume(int volId, ScanCommands& scans);
  bool RescanFolder(int pathId, ScanCommands& scans);

  // "Vol Info / Edit": true when Update was pressed and the edits stored.
  bool EditVolume(int volId, VolumeInfoView& view);

  // "Export…" of a stored play list: its files written as a play list file
  // the picker names (its name suggested, ".m3u8" when no extension is
  // typed); a message says what it came to. False when cancelled or when
  // nothing was written.
  bool ExportPlayList(int playListId, platform::FilePicker& picker);

 private:
  bool Confirm(const char* question) const;
  template <class Remove>
  bool RemoveInTransaction(const char* question, Remove remove);

  MediaDB& db_;
  const CAppSettings& settings_;
  const CDriveServices& drives_;
};
