#pragma once
// A catalogue opened in a fresh temporary program folder.

#include <gtest/gtest.h>

#include "catalogue/MediaDB.h"
#include "tests/support/CatalogueRows.h"
#include "tests/support/TempFolder.h"

class CatalogueTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(db.Open(folder.Path() + "/"), 1); }

  int AddVolume(const std::string& serial, int type, const std::string& name = "Disc") {
    return testing_support::StoreVolume(db, type, "E", name, serial);
  }
  int AddPath(int volId, const std::string& fullPath, int parentId = -1) {
    return testing_support::StoreFolder(db, volId, fullPath, parentId);
  }
  int AddFile(int pathId, const std::string& name) { return testing_support::StoreFile(db, pathId, name); }

  testing_support::TempFolder folder;
  MediaDB db;
};
