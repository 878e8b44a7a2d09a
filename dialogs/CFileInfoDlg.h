#pragma once
// "File Info": one file's texts and rating to edit, with its audio
// properties shown as four texts in a group named by the kind of file
// ("MPEG Info" for MP3), and its cover picture when the file is at hand.
// The caller fills the fields, runs DoModal and, on Update, decides what to
// write back.
// Created on the caller's stack for one run; user-interface thread.

#include <cstdint>
#include <functional>
#include <string>

#include "dialogs/DialogResult.h"

struct FileInfoForm {
  std::string fileName;  // read-only
  std::string title;
  std::string artist;
  std::string album;
  std::string comment;
  std::string length;  // the texts of the group on the audio properties
  std::string bitRate;
  std::string sampleRate;
  std::string channels;
  int checkedRating = 0;                // the checked radio button, 1 to 5 left to right, or 0 for none
  std::string infoTitle = "MPEG Info";  // the group's title: "FLAC Info", "Ogg Vorbis Info", ...
  int fileId = 0;
  std::string coverPath;  // the file's path for its cover picture; "" when it is not at hand
  // When set, finds that path instead (coverPath is then ""): it may read a
  // disc, so the view calls it off its own thread, showing that it checks.
  std::function<std::string()> locateCover;
};

// The dialog's controls.
class FileInfoView {
 public:
  virtual ~FileInfoView() = default;
  // Shows the form until the user presses "Update" or "Cancel"; on Update
  // the form holds the four editable texts and the checked button.
  virtual int RunModal(FileInfoForm& form) = 0;
};

class CFileInfoDlg {
 public:
  static constexpr const char* kCaption = "File Info";
  static constexpr int kNoRating = -1;

  explicit CFileInfoDlg(FileInfoView& view);

  // The group's title for a MediaFiles.Type.
  static std::string InfoTitle(int type);

  std::string fileName;
  std::string title;
  std::string artist;
  std::string album;
  std::string comment;
  std::int32_t length = 0;  // seconds
  std::int32_t bitRate = 0;
  std::int32_t sampleRate = 0;
  std::int32_t channels = 0;
  std::int32_t rating = 0;  // 1 to 5 checks that button; anything else none
  std::int32_t type = 0;    // MediaFiles.Type
  std::int32_t fileId = 0;
  std::string coverPath;  // see FileInfoForm
  std::function<std::string()> locateCover;

  // kDialogOk (Update) takes back title, artist, album and comment, and the
  // rating of the checked button or kNoRating; kDialogCancel changes nothing.
  int DoModal();

  // The form as the dialog opens with the fields.
  FileInfoForm OpeningForm() const;

 private:
  FileInfoView& view_;
};
