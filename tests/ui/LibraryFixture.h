#pragma once
// A whole application in a temporary program folder (disk C, CD drive E,
// the CD drive of the settings) whose tree and media list are bound to
// in-memory controls, with scripted menus, dialogs and message boxes, and a
// scan dialog that records the roots it scanned.

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "app/CLibraryApp.h"
#include "platform/MemoryListControl.h"
#include "platform/MemoryTreeControl.h"
#include "scan/CVolumeScanner.h"
#include "scan/ScanCommands.h"
#include "tests/support/CatalogueRows.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/RecordingMediaControl.h"
#include "tests/support/ScriptedFilePicker.h"
#include "tests/support/ScriptedFolderPicker.h"
#include "tests/support/ScriptedViews.h"
#include "tests/support/WorkerDialogDriver.h"

class RecordingScanHost : public testing_support::WorkerDialogDriver {
 public:
  using WorkerDialogDriver::WorkerDialogDriver;
  const CVolumeScanner* scanner = nullptr;
  std::vector<std::string> scanned;  // "kind root", scan by scan

  void RunWorkerDialog(const char* caption, const MakeLogic& makeLogic) override {
    scanned.push_back(std::to_string(scanner->RequestedKind()) + " " + scanner->ScanRoot());
    WorkerDialogDriver::RunWorkerDialog(caption, makeLogic);
  }
};

class LibraryTest : public ::testing::Test, protected testing_support::ProgramFolder {
 protected:
  LibraryTest() {
    drives.AddFixed('C', folder.MakeFolder("c"));
    drives.AddCd('E');
    app->Start();
    scanHost.scanner = &app->Scanner();
    app->PlayList().AttachList(playList);
    app->Tree().Bind({tree, menu, volumeInfo, scans, filePicker});
    app->List().Bind({list, menu, fileInfo});
    app->List().CreateColumns();
  }

  int AddVolume(int volType, const std::string& displayName, const std::string& drive = "C",
                const std::string& serial = "1") {
    CMediaVolume volume;
    volume.VolType = volType;
    volume.DrvLtr = drive;
    volume.SerialNo = serial;
    volume.Name = "LABEL";
    volume.DisplayName = displayName;
    return app->Db().AddVolume(volume);
  }

  int AddFolder(int volId, const std::string& fullPath, int parentId = -1) {
    return testing_support::StoreFolder(app->Db(), volId, fullPath, parentId);
  }
  int AddFile(int pathId, const std::string& fileName) {
    return testing_support::StoreFile(app->Db(), pathId, fileName);
  }

  void Exec(const std::string& sql) { testing_support::RunSql(app->Db(), sql); }

  // One line per node: depth shown by two blanks, label, value, "+" when
  // expanded and "*" when bold.
  std::string Dump(platform::TreeItem parent = 0, int depth = 0) const {
    std::string text;
    for (platform::TreeItem node : tree.Children(parent)) {
      const auto& item = tree.At(node);
      text += std::string(2 * depth, ' ') + item.label + "=" + std::to_string(item.value) + (item.expanded ? "+" : "") +
              (item.bold ? "*" : "") + "\n";
      text += Dump(node, depth + 1);
    }
    return text;
  }

  // The list's rows, texts joined by "|".
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (const auto& row : list.rows) {
      std::string line = std::to_string(row.value);
      for (const std::string& text : row.texts) line += "|" + text;
      rows.push_back(line);
    }
    return rows;
  }

  platform::TreeItem Node(std::int32_t value) const { return tree.Find(value); }

  testing_support::RecordingMediaControl media;
  testing_support::ScriptedFolderPicker picker;
  testing_support::ScriptedFilePicker filePicker;
  testing_support::ScriptedPopupMenu menu;
  testing_support::ScriptedVolumeInfo volumeInfo;
  testing_support::ScriptedFileInfo fileInfo;
  RecordingScanHost scanHost{messages};
  std::unique_ptr<CLibraryApp> app =
      std::make_unique<CLibraryApp>(folder.Path() + "/", PlatformServices{table, files, messages, media});
  ScanCommands scans{app->Scanner(), app->Drives(), app->Settings(), picker, scanHost};
  platform::MemoryTreeControl tree;
  platform::MemoryListControl list;
  platform::MemoryListControl playList;
};
