#pragma once
// The settings, kept in the catalogue's Configs table as numbered texts.
// Loaded once at start-up and saved at exit when one changed; in between,
// commands change only the fields here.

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

class MediaDB;

class CAppSettings {
 public:
  enum ConfigId : int {
    kCatalogueVersion = 1,
    kCdDrive = 405,
    kCacheFolder = 410,
    kMainLeft = 505,
    kMainTop = 510,
    kMainHeight = 515,
    kMainWidth = 520,
    kSplitter = 525,
    kPlayListLeft = 530,
    kPlayListTop = 535,
    kPlayListHeight = 540,
    kPlayListWidth = 545,
    kMediaListColumns = 550,
    kPlayListColumns = 555,
    kMainMaximized = 560,
    kPlayListFolder = 605,
    kVolume = 700,
    kPlayThrough = 705,
    kAllFormats = 710,  // "1": catalogue FLAC, Musepack, Opus and M4A too; "0" (the default): not
    kReplayGain = 715,  // "off", "track" (the default) or "album"
    kShuffle = 720,     // "1": play through in a shuffled order
    kRepeat = 725,      // "off", "all" or "one"
  };
  static constexpr std::int32_t kFullVolume = 1000;

  CAppSettings(MediaDB& db, std::string programFolder);
  virtual ~CAppSettings() = default;

  std::string catalogueVersion;
  std::string programFolder;  // where the catalogue lies; not stored
  std::string cdDrive;
  std::string cacheFolder;
  std::int32_t mainLeft = 40;
  std::int32_t mainTop = 100;
  std::int32_t mainHeight = 400;
  std::int32_t mainWidth = 500;
  std::int32_t playListLeft = 550;
  std::int32_t playListTop = 100;
  std::int32_t playListHeight = 400;
  std::int32_t playListWidth = 210;
  std::int32_t splitter = 100;
  // The lists' columns left to right with their widths ("2:160,0:100,...");
  // empty for the columns as created.
  std::string mediaListColumns;
  std::string playListColumns;
  std::int32_t mainMaximized = 0;  // 1: the main window comes back maximised
  std::string playListFolder;
  bool allFormats = false;            // scans record every audio format, not only MP3, Ogg Vorbis and WMA
  std::int32_t volume = kFullVolume;  // the player's level, 0 to 1000
  bool playThrough = true;            // the play list window plays on to its end
  std::string replayGain = "track";   // "off", "track" or "album"
  bool shuffle = false;               // play through in a shuffled order
  std::string repeat = "off";         // "off", "all" (the whole list) or "one" (one file)
  std::string lastAddedFolder;        // the folder last chosen by Add HD; this run only

  // Whether the nine window values are still those a new catalogue starts
  // with: no window was ever placed.
  bool GeometryIsDefault() const;

  std::string GetConfigText(int configId);
  int GetConfigInt(int configId);
  void SetConfigText(int configId, const std::string& value, bool insert);

  // Reads every stored setting, one statement each.
  void Load();
  // Writes every setting but the catalogue version in one transaction: new rows
  // when insert is true, updates of the existing rows otherwise.
  void Save(bool insert);
  // Save(false), when a setting differs from what was last loaded or saved;
  // so a run that changed nothing never writes.
  void SaveIfChanged();
  // Inserts each setting row that Configs lacks, with the field's current
  // value; the caller holds a transaction. Returns the number written.
  int InsertMissingRows();
  bool AnyRowMissing();
  // Why settings changed now would not be kept (the catalogue is read-only);
  // "" when they will be.
  std::string WhyNotKept() const;

 private:
  using Rows = std::vector<std::pair<int, std::string>>;
  // Every saved setting with its text, in the order of Save.
  Rows CurrentRows() const;

  MediaDB& db_;
  Rows stored_;  // as last loaded or saved
};
