#include "cli/ConsolePlayListWindow.h"

#include <unistd.h>

#include "app/CLibraryApp.h"
#include "platform/FileSystem.h"

ConsolePlayListWindow::ConsolePlayListWindow(CLibraryApp& app)
    : app_(app),
      copyDialog_(app.Platform().messages, stderr, isatty(STDERR_FILENO) == 1),
      copy_(app.PlayList(), app.Db(), app.Drives(), app.Settings(), copyDialog_),
      window_(PlayListWindowParts{app.PlayList(), app.Playback(), copy_, app.Settings(), app.Drives(), *this, *this,
                                  app.PlayThrough(), filePicker_},
              *this) {
  window_.OnInitDialog();
}

void ConsolePlayListWindow::Add(const IdList& fileIds) { app_.PlayList().AddFiles(fileIds); }

// The picker works on Linux folders, as a desktop picker does.
int ConsolePlayListWindow::Browse(const std::string&, const std::string&, std::string& chosenFolder) {
  chosenFolder = app_.Drives().Files().LocalPath(pickedFolder_);
  return chosenFolder.empty() ? kCancelled : kChosen;
}

int ConsolePlayListWindow::RunModal() {
  edit_ = typed_;
  return kOk;
}
