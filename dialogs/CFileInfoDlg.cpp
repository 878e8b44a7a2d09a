#include "dialogs/CFileInfoDlg.h"

#include <cstdio>

#include "base/LengthText.h"

namespace {

constexpr int kRatingButtons = 5;

template <class... Values>
std::string Format(const char* format, Values... values) {
  char text[64];
  std::snprintf(text, sizeof text, format, values...);
  return text;
}

}  // namespace

CFileInfoDlg::CFileInfoDlg(FileInfoView& view) : view_(view) {}

FileInfoForm CFileInfoDlg::OpeningForm() const {
  const bool hasButton = rating > 0 && rating <= kRatingButtons;
  return {fileName,
          title,
          artist,
          album,
          comment,
          "Length:  " + MinutesAndSeconds(length),
          Format("Bit Rate: %d kb/s", bitRate),
          Format("Sample Rate: %d Hz", sampleRate),
          Format("Channels: %d", channels),
          hasButton ? rating : 0};
}

int CFileInfoDlg::DoModal() {
  FileInfoForm form = OpeningForm();
  const int result = view_.RunModal(form);
  if (result != kDialogOk) return result;
  title = form.title;
  artist = form.artist;
  album = form.album;
  comment = form.comment;
  rating = form.checkedRating > 0 ? form.checkedRating : kNoRating;
  return result;
}
