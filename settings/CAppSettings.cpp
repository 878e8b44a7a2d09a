#include "settings/CAppSettings.h"

#include <algorithm>
#include <cstdlib>

#include "catalogue/MediaDB.h"

CAppSettings::CAppSettings(MediaDB& db, std::string folder) : programFolder(std::move(folder)), db_(db) {}

std::string CAppSettings::GetConfigText(int configId) { return db_.GetConfig(configId); }

int CAppSettings::GetConfigInt(int configId) { return std::atoi(GetConfigText(configId).c_str()); }

void CAppSettings::SetConfigText(int configId, const std::string& value, bool insert) {
  db_.SetConfig(configId, value, insert);
}

void CAppSettings::Load() {
  cdDrive = GetConfigText(kCdDrive);
  cacheFolder = GetConfigText(kCacheFolder);
  mainLeft = GetConfigInt(kMainLeft);
  mainTop = GetConfigInt(kMainTop);
  mainHeight = GetConfigInt(kMainHeight);
  mainWidth = GetConfigInt(kMainWidth);
  splitter = GetConfigInt(kSplitter);
  playListLeft = GetConfigInt(kPlayListLeft);
  playListTop = GetConfigInt(kPlayListTop);
  playListHeight = GetConfigInt(kPlayListHeight);
  playListWidth = GetConfigInt(kPlayListWidth);
  playListFolder = GetConfigText(kPlayListFolder);
  allFormats = GetConfigText(kAllFormats) == "1";
  mediaListColumns = GetConfigText(kMediaListColumns);
  playListColumns = GetConfigText(kPlayListColumns);
  mainMaximized = GetConfigInt(kMainMaximized);
  // Rows the first versions did not write keep their defaults while missing
  // (a catalogue on read-only storage gets none added).
  if (const std::string text = GetConfigText(kVolume); !text.empty())
    volume = std::clamp(std::atoi(text.c_str()), 0, kFullVolume);
  if (const std::string text = GetConfigText(kPlayThrough); !text.empty()) playThrough = std::atoi(text.c_str()) != 0;
  if (const std::string text = GetConfigText(kReplayGain); text == "off" || text == "album") replayGain = text;
  if (const std::string text = GetConfigText(kShuffle); !text.empty()) shuffle = std::atoi(text.c_str()) != 0;
  if (const std::string text = GetConfigText(kRepeat); text == "all" || text == "one") repeat = text;
  catalogueVersion = GetConfigText(kCatalogueVersion);
  stored_ = CurrentRows();
}

CAppSettings::Rows CAppSettings::CurrentRows() const {
  auto number = [](std::int32_t value) { return std::to_string(value); };
  return {{kCdDrive, cdDrive},
          {kCacheFolder, cacheFolder},
          {kMainLeft, number(mainLeft)},
          {kMainTop, number(mainTop)},
          {kMainHeight, number(mainHeight)},
          {kMainWidth, number(mainWidth)},
          {kSplitter, number(splitter)},
          {kPlayListLeft, number(playListLeft)},
          {kPlayListTop, number(playListTop)},
          {kPlayListHeight, number(playListHeight)},
          {kPlayListWidth, number(playListWidth)},
          {kPlayListFolder, playListFolder},
          {kMediaListColumns, mediaListColumns},
          {kPlayListColumns, playListColumns},
          {kMainMaximized, number(mainMaximized)},
          {kVolume, number(volume)},
          {kPlayThrough, number(playThrough ? 1 : 0)},
          {kAllFormats, allFormats ? "1" : "0"},
          {kReplayGain, replayGain},
          {kShuffle, number(shuffle ? 1 : 0)},
          {kRepeat, repeat}};
}

bool CAppSettings::GeometryIsDefault() const {
  const CAppSettings fresh(db_, "");
  return mainLeft == fresh.mainLeft && mainTop == fresh.mainTop && mainHeight == fresh.mainHeight &&
         mainWidth == fresh.mainWidth && splitter == fresh.splitter && playListLeft == fresh.playListLeft &&
         playListTop == fresh.playListTop && playListHeight == fresh.playListHeight &&
         playListWidth == fresh.playListWidth;
}

void CAppSettings::Save(bool insert) {
  Rows rows = CurrentRows();
  db_.Begin();
  for (const auto& [configId, text] : rows) SetConfigText(configId, text, insert);
  db_.Commit();
  stored_ = std::move(rows);
}

void CAppSettings::SaveIfChanged() {
  if (CurrentRows() != stored_) Save(false);
}

bool CAppSettings::AnyRowMissing() {
  const IdList present = db_.GetConfigIds();
  for (const auto& [configId, text] : CurrentRows())
    if (std::find(present.begin(), present.end(), configId) == present.end()) return true;
  return false;
}

int CAppSettings::InsertMissingRows() {
  const IdList present = db_.GetConfigIds();
  int written = 0;
  for (const auto& [configId, text] : CurrentRows()) {
    if (std::find(present.begin(), present.end(), configId) != present.end()) continue;
    SetConfigText(configId, text, true);
    ++written;
  }
  return written;
}

std::string CAppSettings::WhyNotKept() const { return db_.IsReadOnly() ? db_.ReadOnlyMessage() : ""; }
