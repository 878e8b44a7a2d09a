#include "cli/ConsoleLibraryWindow.h"

#include <unistd.h>

#include "app/CLibraryApp.h"
#include "cli/ConsoleCommand.h"
#include "ui/CMediaList.h"
#include "ui/NodeValue.h"
#include "ui/QuickSearch.h"

ConsoleLibraryWindow::ConsoleLibraryWindow(CLibraryApp& app, int towardPathId)
    : app_(app),
      scanDialog_(app.Platform().messages, stderr, isatty(STDERR_FILENO) == 1),
      scans_(app.Scanner(), app.Drives(), app.Settings(), picker_, scanDialog_) {
  app.Tree().Bind({tree_, *this, *this, scans_, filePicker_});
  app.List().Bind({list_, *this, *this});
  app.List().CreateColumns();
  if (towardPathId == kWholeTree)
    app.Tree().Rebuild();
  else
    app.Tree().RebuildToward(towardPathId);
}

ConsoleLibraryWindow::~ConsoleLibraryWindow() {
  app_.Tree().Unbind();
  app_.List().Unbind();
}

platform::TreeItem ConsoleLibraryWindow::Node(const std::string& kind, int id) const {
  const NodeKind nodeKind = kind == "volume"   ? NodeKind::Volume
                            : kind == "folder" ? NodeKind::Folder
                                               : NodeKind::PlayList;
  const char* key = kind == "volume" ? "VolID" : kind == "folder" ? "PathID" : "PlayListID";
  // An id outside its kind's range would name a node of another kind.
  const std::int32_t value = ItemValue(nodeKind, id);
  const DecodedNode decoded = DecodeItemValue(value);
  const bool inRange = decoded.kind == nodeKind && decoded.id == id;
  const platform::TreeItem node = inRange ? tree_.Find(value) : platform::TreeControl::kNoItem;
  if (node == platform::TreeControl::kNoItem)
    throw UsageError("no " + kind + " with " + key + " " + std::to_string(id) + " in the library tree");
  return node;
}

void ConsoleLibraryWindow::Select(platform::TreeItem node) { app_.Tree().SelectNode(node); }

void ConsoleLibraryWindow::Search(const std::string& findText) { QuickSearch(app_.Tree(), app_.List(), findText); }

void ConsoleLibraryWindow::EditFileInfo(const CMediaFile& file) {
  CMediaList& list = app_.List();
  list.Clear();
  list.AddRow(file);
  list_.Select({0});
  list.EditFileInfo();
}

// No menu is shown and no volume edited on this window: both are cancelled.
int ConsoleLibraryWindow::Track(std::span<const platform::MenuEntry>) { return 0; }

int ConsoleLibraryWindow::RunModal(VolumeInfoForm&) { return kDialogCancel; }

int ConsoleLibraryWindow::RunModal(FileInfoForm& form) { return fileInfoUser ? fileInfoUser(form) : kDialogCancel; }

void ConsoleLibraryWindow::PrintTree(std::FILE* out) const { PrintNodes(out, platform::TreeControl::kNoItem, 0); }

void ConsoleLibraryWindow::PrintNodes(std::FILE* out, platform::TreeItem parent, int depth) const {
  for (platform::TreeItem node : tree_.Children(parent)) {
    const auto& item = tree_.At(node);
    std::fprintf(out, "%*s%s\t%d\n", 2 * depth, "", OneLine(item.label).c_str(), static_cast<int>(item.value));
    PrintNodes(out, node, depth + 1);
  }
}

void ConsoleLibraryWindow::PrintFound(std::FILE* out) const {
  const int found = list_.RowCount();
  std::fprintf(out, "%d %s found.\n", found, found == 1 ? "file" : "files");
}

void ConsoleLibraryWindow::PrintList(std::FILE* out) const {
  std::fprintf(out, "FileID\tSong\tArtist\tFileName\tRating\tLength\tVolume\n");
  // The columns up to Volume, as the console always printed them.
  for (const auto& row : list_.rows) {
    std::string line = std::to_string(row.value);
    for (int column = 0; column <= CMediaList::kVolume; ++column) line += "\t" + OneLine(row.texts.at(column));
    std::fprintf(out, "%s\n", line.c_str());
  }
}
