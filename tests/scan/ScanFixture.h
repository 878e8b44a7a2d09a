#pragma once
// A program folder with a disk C, an empty CD drive E and a catalogue, and a
// scanner reading real tags with TagLib, through a reader a test may watch.
// Listings fail where a test says so.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <mutex>

#include "catalogue/MediaDB.h"
#include "platform/LinuxDriveTable.h"
#include "scan/CVolumeScanner.h"
#include "tags/CTagReader.h"
#include "tests/support/CatalogueRows.h"
#include "tests/support/FailingListings.h"
#include "tests/support/ScriptedMessageBox.h"
#include "tests/support/TempFolder.h"
#include "volumes/CDriveServices.h"

// Reads through the real reader, calling a hook first (to throw, to block, to
// see which files are read). Scans read on several threads at once: the hook
// must be safe to call from them.
class WatchedReader : public TagReader {
 public:
  explicit WatchedReader(TagReader& real) : real_(real) {}
  std::function<void(const std::string& fullPath)> beforeRead;
  int GetTag(std::string fullPath, CMediaFile& file) override {
    if (beforeRead) {
      std::lock_guard lock(mutex_);
      beforeRead(fullPath);
    }
    return real_.GetTag(fullPath, file);
  }

 private:
  TagReader& real_;
  std::mutex mutex_;
};

class ScanTest : public ::testing::Test {
 protected:
  ScanTest()
      : testDrives(folder.Path()),
        table(folder.Path()),
        fileSystem(table),
        drives(table, fileSystem, messages),
        realReader(fileSystem),
        reader(realReader),
        scanner(db, drives, reader, messages) {
    testDrives.AddFixed('C', folder.MakeFolder("c"));
    testDrives.AddCd('E');
  }

  void SetUp() override { db.Open(folder.Path() + "/"); }

  // Copies a fixture to a path below the folder (for instance "c/Music/a.mp3").
  void Put(const std::string& relative, const std::string& fixture) {
    const auto target = std::filesystem::path(folder.Path()) / relative;
    std::filesystem::create_directories(target.parent_path());
    std::filesystem::copy_file(std::string(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/") + fixture, target,
                               std::filesystem::copy_options::overwrite_existing);
  }

  void Scan(int kind, const std::string& root, AudioFormats formats = AudioFormats::Classic) {
    scanner.Prepare(kind, root, formats);
    scanner.Run();
  }

  // Stored folder path -> PathID, of every folder in the catalogue.
  std::map<std::string, int> CataloguedFolders() {
    std::map<std::string, int> folders;
    for (const auto& row : testing_support::RunSql(db.Path(), "SELECT FullPath,PathID FROM MediaPaths;"))
      folders[row[0]] = std::stoi(row[1]);
    return folders;
  }

  // "stored folder path + file name" -> FileID, of every file in the catalogue.
  std::map<std::string, int> CataloguedFiles() {
    std::map<std::string, int> result;
    for (const auto& row : testing_support::RunSql(
             db.Path(),
             "SELECT p.FullPath||f.FileName,f.FileID FROM MediaFiles f JOIN MediaPaths p ON p.PathID=f.PathID;"))
      result[row[0]] = std::stoi(row[1]);
    return result;
  }

  testing_support::TempFolder folder;
  testing_support::TestDrives testDrives;
  platform::LinuxDriveTable table;
  testing_support::FailingListings fileSystem;
  testing_support::ScriptedMessageBox messages;
  CDriveServices drives;
  MediaDB db;
  CTagReader realReader;
  WatchedReader reader;
  CVolumeScanner scanner;
};
