#include "cli/PlayListPlayCommand.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "app/CLibraryApp.h"
#include "playlists/CPlayThrough.h"
#include "playlists/FileIds.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kPollInterval{100};
// Guards against a stream that stalls before its end.
constexpr milliseconds kEndMargin{3000};

}  // namespace

PlayListPlayCommand::PlayListPlayCommand(CommandArguments& parent)
    : command_(parent, "play-list", "Play a stored play list through, file after file") {
  command_.Add("PLAYLISTID", playListId_, "The play list's PlayListID, as `tree` shows it").Required();
  command_.Add("--seconds", seconds_, "Play this many seconds of each file (default: all)").NonNegative();
}

bool PlayListPlayCommand::Chosen() const { return command_.Chosen(); }

int PlayListPlayCommand::Run(CLibraryApp& app, std::FILE* out) {
  const auto stored = app.Db().GetPlayList(playListId_);
  if (!stored) throw UsageError("no play list with PlayListID " + std::to_string(playListId_) + " in the catalogue");
  // Each file once: a row is found again by its file.
  const IdList rows = app.Db().ExistingFileIds(UniqueIds(ParseIdList(stored->FileIDs)));
  PlayFilesThrough(app, rows, seconds_, out);
  return 0;
}

void PlayFilesThrough(CLibraryApp& app, const IdList& rows, std::optional<int> seconds, std::FILE* out) {
  CPlaybackControl& playback = app.Playback();
  CPlayThrough run(playback, [&rows] { return rows; });
  auto started = steady_clock::now();
  // Printed once the file opened and plays; one that does not gets the box.
  const int listener = playback.OnStarted([&](int fileId) {
    const auto file = app.Db().GetFile(fileId);
    const auto row = std::find(rows.begin(), rows.end(), fileId) - rows.begin();
    std::fprintf(out, "%d/%zu %s\n", static_cast<int>(row) + 1, rows.size(),
                 OneLine(TerminalText(file ? file->FileName : "")).c_str());
    std::fflush(out);
  });
  run.OnStarted([&started](int, int) { started = steady_clock::now(); });

  if (!run.PlayRow(0)) {
    playback.RemoveListener(listener);
    return;
  }
  while (run.Running()) {
    PlayerStatus status;
    playback.Poll([&status](const PlayerStatus& answer) { status = answer; });
    const milliseconds limit =
        seconds ? milliseconds(std::chrono::seconds(*seconds)) : milliseconds(status.lengthMs) + kEndMargin;
    if (steady_clock::now() - started >= limit) {
      if (!run.Next()) run.Stop();
      continue;
    }
    run.OnStatus(status);
    if (run.Running()) std::this_thread::sleep_for(kPollInterval);
  }
  playback.StopPlayback();
  playback.RemoveListener(listener);
}
