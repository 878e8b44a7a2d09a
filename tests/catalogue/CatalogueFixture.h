#pragma once
// A catalogue opened in a fresh temporary program folder.

#include <gtest/gtest.h>

#include "catalogue/MediaDB.h"
#include "tests/support/TempFolder.h"

class CatalogueTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(db.Open(folder.Path() + "/"), 1); }

  int AddVolume(const std::string& serial, int type, const std::string& name = "Disc") {
    CMediaVolume volume;
    volume.SerialNo = serial;
    volume.VolType = type;
    volume.Name = volume.DisplayName = name;
    volume.DrvLtr = "E";
    return db.AddVolume(volume);
  }
  int AddPath(int volId, const std::string& fullPath, int parentId = -1) {
    CMediaPath path;
    path.VolID = volId;
    path.ParentID = parentId;
    path.FullPath = fullPath;
    path.Name = fullPath;
    return db.AddPath(path);
  }
  int AddFile(int volId, int pathId, const std::string& name) {
    CMediaFile file;
    file.VolID = volId;
    file.PathID = pathId;
    file.FileName = name;
    file.Type = 1;
    return db.AddFile(file);
  }

  testing_support::TempFolder folder;
  MediaDB db;
};
