#include "cli/OptionsCommand.h"

#include <algorithm>
#include <cctype>

#include "app/CLibraryApp.h"
#include "base/AsciiCase.h"
#include "cli/NoFolderPicker.h"
#include "dialogs/COptionsDlg.h"

namespace {

// Types the given edits into the dialog and presses OK; with none, Cancel.
class ConsoleOptionsView : public OptionsView {
 public:
  ConsoleOptionsView(std::optional<std::string> cachePath, std::optional<std::string> cdDrive,
                     std::optional<bool> allFormats, std::optional<std::string> replayGain)
      : cachePath_(std::move(cachePath)),
        cdDrive_(std::move(cdDrive)),
        allFormats_(allFormats),
        replayGain_(std::move(replayGain)) {}

  int RunModal(OptionsForm& form, const std::function<void()>&) override {
    if (!cachePath_ && !cdDrive_ && !allFormats_ && !replayGain_) return kDialogCancel;
    if (replayGain_) form.replayGain = AsciiLower(*replayGain_);
    if (cdDrive_) SelectDrive(form, *cdDrive_);
    if (cachePath_) form.cachePath = *cachePath_;
    if (allFormats_) form.allFormats = *allFormats_;
    return kDialogOk;
  }

 private:
  static void SelectDrive(OptionsForm& form, const std::string& letter) {
    const auto entry = std::find(form.drives.begin(), form.drives.end(), letter + ":\\");
    if (entry == form.drives.end()) throw UsageError("drive " + letter + ": is not a CD drive of the drive table");
    form.selectedDrive = static_cast<int>(entry - form.drives.begin());
  }

  std::optional<std::string> cachePath_;
  std::optional<std::string> cdDrive_;
  std::optional<bool> allFormats_;
  std::optional<std::string> replayGain_;
};

}  // namespace

OptionsCommand::OptionsCommand(CommandArguments& parent)
    : command_(parent, "options", "Show or change the cache folder and the CD drive") {
  command_.Add("--cache-path", cachePath_, "Cache folder: a Linux path or a drive path such as C:\\QORCache");
  command_.Add("--cd-drive", cdDrive_, "Letter of the CD drive used by Add CD and playback");
  command_
      .Add("--all-formats", allFormats_,
           "yes: scans also record FLAC, Musepack, Opus and M4A files; no: only MP3, Ogg "
           "Vorbis and WMA (the next scan of a volume asks, then removes the others)")
      .OneOf({"yes", "no"}, true)
      .ValueText("yes|no");
  command_
      .Add("--replaygain", replayGain_, "Play files at the level their ReplayGain tags ask for: off, track or album")
      .OneOf({"off", "track", "album"}, true)
      .ValueText("off|track|album");
}

bool OptionsCommand::Chosen() const { return command_.Chosen(); }

std::string OptionsCommand::CdDriveLetter() const {
  std::string letter = *cdDrive_;
  if (letter.size() > 1 && letter[1] == ':') letter.resize(1);
  if (letter.size() != 1) throw UsageError("--cd-drive takes a drive letter, not '" + *cdDrive_ + "'");
  letter[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(letter[0])));
  return letter;
}

int OptionsCommand::Run(CLibraryApp& app, std::FILE* out) {
  // OK would change settings that could never be stored.
  if ((cachePath_ || cdDrive_ || allFormats_ || replayGain_) && app.Db().IsReadOnly()) {
    std::fprintf(stderr, "%s\n", app.Db().ReadOnlyMessage().c_str());
    return 1;
  }
  // Both arguments are checked before OK takes either.
  std::optional<std::string> cachePath;
  if (cachePath_) cachePath = FolderArgument(app, *cachePath_);
  ConsoleOptionsView view(cachePath, cdDrive_ ? std::optional(CdDriveLetter()) : std::nullopt, allFormats_,
                          replayGain_);
  NoFolderPicker picker;
  COptionsDlg(app.Settings(), app.Drives(), picker, view).DoModal();
  const CAppSettings& settings = app.Settings();
  std::fprintf(out, "Cache Path: %s\n", OneLine(settings.cacheFolder).c_str());
  std::fprintf(out, "CD Drive: %s\n", OneLine(settings.cdDrive).c_str());
  std::fprintf(out, "Catalogue every audio format: %s\n", settings.allFormats ? "yes" : "no");
  std::fprintf(out, "ReplayGain: %s\n", settings.replayGain.c_str());
  std::fprintf(out, "Catalogue: %s%s\n", settings.programFolder.c_str(), MediaDB::kFileName);
  return 0;
}
