#pragma once
// The main window's tree and media list on a terminal: the application's
// CLibraryTree and CMediaList bound to controls in memory, which a command
// drives as a user would (select a node, search) and then prints. The file's
// editing dialog is answered by the command's own user; the tree's menu is
// never shown (the library's commands run without it).

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>

#include "catalogue/Records.h"
#include "cli/ConsoleProgressDialog.h"
#include "cli/NoFilePicker.h"
#include "cli/NoFolderPicker.h"
#include "dialogs/CFileInfoDlg.h"
#include "dialogs/CVolumeInfoDlg.h"
#include "platform/MemoryListControl.h"
#include "platform/MemoryTreeControl.h"
#include "platform/PopupMenu.h"
#include "scan/ScanCommands.h"

class CLibraryApp;

class ConsoleLibraryWindow : private platform::PopupMenu, private VolumeInfoView, private FileInfoView {
 public:
  static constexpr int kWholeTree = -2;
  // Binds the application's tree and list and builds the tree: whole, or
  // with only the folder towardPathId and those above it (-1: no folder),
  // for a command about one node, whose cost should not grow with the library.
  explicit ConsoleLibraryWindow(CLibraryApp& app, int towardPathId = kWholeTree);
  // Unbinds them again: the controls go with this window.
  ~ConsoleLibraryWindow() override;
  ConsoleLibraryWindow(const ConsoleLibraryWindow&) = delete;
  ConsoleLibraryWindow& operator=(const ConsoleLibraryWindow&) = delete;

  // Who fills in the file's editing dialog: edits the form and returns the button.
  std::function<int(FileInfoForm&)> fileInfoUser;

  // The node of a "volume", "folder" or "playlist" with that id; throws
  // UsageError when the tree does not show one.
  platform::TreeItem Node(const std::string& kind, int id) const;
  void Select(platform::TreeItem node);
  // The Find field holding the text, then "Go".
  void Search(const std::string& findText);
  // "File Info / Edit" with the file as the list's one selected row.
  void EditFileInfo(const CMediaFile& file);

  // One node a line: two blanks a level, the label, a tab, the item value.
  void PrintTree(std::FILE* out) const;
  // A heading, then one line a row: the FileID and the six texts, by tabs.
  void PrintList(std::FILE* out) const;
  // "1 file found." or "N files found.", for the rows the list shows.
  void PrintFound(std::FILE* out) const;

 private:
  int Track(std::span<const platform::MenuEntry> entries) override;
  int RunModal(VolumeInfoForm& form) override;
  int RunModal(FileInfoForm& form) override;
  void PrintNodes(std::FILE* out, platform::TreeItem parent, int depth) const;

  CLibraryApp& app_;
  platform::MemoryTreeControl tree_;
  platform::MemoryListControl list_;
  NoFolderPicker picker_;
  NoFilePicker filePicker_;
  ConsoleProgressDialog scanDialog_;
  ScanCommands scans_;
};
