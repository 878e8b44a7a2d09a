#include "cli/PlayCommand.h"

#include <algorithm>
#include <thread>

#include "app/CLibraryApp.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kPollInterval{100};
// Without --seconds the end of the stream ends the wait; this margin only
// guards against a stream that stalls before its end.
constexpr milliseconds kEndMargin{3000};

// Returns once the limit has passed, the stream has reached its end or the
// device no longer answers.
void WaitWhilePlaying(CMciPlayer& player, milliseconds limit) {
  const auto deadline = steady_clock::now() + limit;
  for (auto now = steady_clock::now(); now < deadline; now = steady_clock::now()) {
    const std::int32_t position = player.Position();
    if (position < 0 || position >= player.LengthMs()) return;
    std::this_thread::sleep_for(std::min<steady_clock::duration>(kPollInterval, deadline - now));
  }
}

}  // namespace

PlayCommand::PlayCommand(CommandArguments& parent) : command_(parent, "play", "Play a catalogued file, then stop") {
  command_.Add("FILEID", fileId_, "The file's FileID, as `list` and `search` show it").Required();
  command_.Add("--seconds", seconds_, "Stop after this many seconds (default: at the end)").NonNegative();
}

bool PlayCommand::Chosen() const { return command_.Chosen(); }

milliseconds PlayCommand::Limit(const CMciPlayer& player) const {
  if (seconds_) return std::chrono::seconds(*seconds_);
  return milliseconds(player.LengthMs()) + kEndMargin;
}

int PlayCommand::Run(CLibraryApp& app, std::FILE*) {
  if (!app.Db().GetFile(fileId_))
    throw UsageError("no file with FileID " + std::to_string(fileId_) + " in the catalogue");
  // -1: the disc prompt was cancelled (or the file's folder or volume is gone).
  if (app.Playback().PlayFile(fileId_) != 0) return 0;

  CMciPlayer& player = app.Player();
  if (player.LastError() != 0) return 0;  // the box, with the reason, has been printed
  WaitWhilePlaying(player, Limit(player));
  app.Playback().StopPlayback();
  return 0;
}
