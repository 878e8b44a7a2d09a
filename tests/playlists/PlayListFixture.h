#pragma once
// A whole application in a temporary program folder: disk C (folder "c"), an
// empty CD drive E (the CD drive of the settings), scripted message boxes and
// a recording media control; the play list is bound to an in-memory list.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "app/CLibraryApp.h"
#include "platform/MemoryListControl.h"
#include "tests/support/CatalogueRows.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/RecordingMediaControl.h"

class PlayListTest : public ::testing::Test, protected testing_support::ProgramFolder {
 protected:
  PlayListTest() {
    drives.AddFixed('C', folder.MakeFolder("c"));
    drives.AddCd('E');
    app = std::make_unique<CLibraryApp>(folder.Path() + "/", PlatformServices{table, files, messages, media});
    app->Start();
    app->PlayList().AttachList(list);
    disk = AddVolume(3, "Disk", 1);
  }

  // A volume on drive C, or a CD catalogued from E with its disc as a folder.
  int AddVolume(int volType, const std::string& name, unsigned serial) {
    if (volType == 5) testing_support::LabelDisc(folder.MakeFolder(name), name, serial);
    return testing_support::StoreVolume(app->Db(), volType, volType == 5 ? "E" : "C", name, std::to_string(serial));
  }

  // A file row in a new folder row; the file is written below the test folder
  // at linuxFolder (default: the folder on disk C).
  std::int32_t AddFile(const std::string& fileName, const std::string& content = "data", int volId = 0,
                       const std::string& folderPath = "\\Music\\", const std::string& linuxFolder = "c/Music") {
    folder.WriteFile(linuxFolder + "/" + fileName, content);
    const int pathId = testing_support::StoreFolder(app->Db(), volId ? volId : disk, folderPath);
    return testing_support::StoreFile(app->Db(), pathId, fileName);
  }

  std::string Local(const std::string& relative) const { return folder.Path() + "/" + relative; }
  std::string Read(const std::string& relative) const {
    std::ifstream in(Local(relative), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  testing_support::RecordingMediaControl media;
  std::unique_ptr<CLibraryApp> app;
  platform::MemoryListControl list;
  int disk = 0;
};
