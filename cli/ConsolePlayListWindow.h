#pragma once
// The play list window on a terminal: the same window logic over a list in
// memory, with the folder picker and the input dialog answered from the
// command line and the copy dialog drawn on standard error. A command fills
// it, then presses a button or picks a menu entry.

#include <string>

#include "catalogue/MediaDB.h"
#include "cli/ConsoleProgressDialog.h"
#include "cli/NoFilePicker.h"
#include "platform/FolderPicker.h"
#include "platform/InputDialog.h"
#include "platform/MemoryListControl.h"
#include "playlists/CPlayListDlg.h"
#include "playlists/CopyCommands.h"

class CLibraryApp;

class ConsolePlayListWindow : private PlayListView, private platform::FolderPicker, private platform::InputDialog {
 public:
  explicit ConsolePlayListWindow(CLibraryApp& app);

  // "Add To PlayList" from the main window with these files selected.
  void Add(const IdList& fileIds);
  // The folder the picker answers with (a drive path), and the text typed
  // into the input dialog before its OK button is pressed.
  void WillPick(const std::string& drivePath) { pickedFolder_ = drivePath; }
  void WillType(const std::string& text) { typed_ = text; }
  void Press(int command) { window_.OnCommand(command); }

 private:
  platform::ListControl& List() override { return list_; }
  void MoveWindow(int, int, int, int) override {}
  void MoveList(int, int, int, int) override {}
  void AddButtons(std::span<const PlayListButton>) override {}
  int TrackPopupMenu(std::span<const platform::MenuEntry>) override { return 0; }
  // The copy command prints each file not copied instead (PlayListCommands.h).
  void SetStatusLine(const std::string&) override {}

  int Browse(const std::string& title, const std::string& initialFolder, std::string& chosenFolder) override;

  void SetCaption(const std::string&) override {}
  void SetPrompt(const std::string&) override {}
  void SetEditText(const std::string& text) override { edit_ = text; }
  void SetOkLabel(const std::string&) override {}
  int RunModal() override;
  std::string EditText() const override { return edit_; }

  CLibraryApp& app_;
  NoFilePicker filePicker_;
  platform::MemoryListControl list_;
  ConsoleProgressDialog copyDialog_;
  CopyCommands copy_;
  CPlayListDlg window_;
  std::string pickedFolder_;
  std::string typed_;
  std::string edit_;
};
