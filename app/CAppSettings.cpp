#include "app/CAppSettings.h"

#include <cstdlib>

#include "catalogue/MediaDB.h"

CAppSettings::CAppSettings(MediaDB& db, std::string folder)
    : programFolder(std::move(folder)), db_(db) {}

std::string CAppSettings::GetConfigText(int configId) { return db_.GetConfig(configId); }

int CAppSettings::GetConfigInt(int configId) { return std::atoi(GetConfigText(configId).c_str()); }

void CAppSettings::SetConfigText(int configId, const std::string& value, bool insert) {
  db_.SetConfig(configId, value, insert);
}

void CAppSettings::SetConfigInt(int configId, int value, bool insert) {
  SetConfigText(configId, std::to_string(value), insert);
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
  catalogueVersion = GetConfigText(kCatalogueVersion);
}

void CAppSettings::Save(bool insert) {
  db_.Begin();
  SetConfigText(kCdDrive, cdDrive, insert);
  SetConfigText(kCacheFolder, cacheFolder, insert);
  SetConfigInt(kMainLeft, mainLeft, insert);
  SetConfigInt(kMainTop, mainTop, insert);
  SetConfigInt(kMainHeight, mainHeight, insert);
  SetConfigInt(kMainWidth, mainWidth, insert);
  SetConfigInt(kSplitter, splitter, insert);
  SetConfigInt(kPlayListLeft, playListLeft, insert);
  SetConfigInt(kPlayListTop, playListTop, insert);
  SetConfigInt(kPlayListHeight, playListHeight, insert);
  SetConfigInt(kPlayListWidth, playListWidth, insert);
  SetConfigText(kPlayListFolder, playListFolder, insert);
  db_.Commit();
}
