#include "dialogs/CFileInfoDlg.h"

#include <cstdio>

#include "base/LengthText.h"
#include "volumes/Paths.h"

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

std::string CFileInfoDlg::InfoTitle(int type) {
  switch (type) {
    case kOgg:
      return "Ogg Vorbis Info";
    case kWma:
      return "WMA Info";
    case kFlac:
      return "FLAC Info";
    case kMusepack:
      return "Musepack Info";
    case kOpus:
      return "Opus Info";
    case kM4a:
      return "M4A Info";
    default:
      return "MPEG Info";
  }
}

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
          hasButton ? rating : 0,
          InfoTitle(type),
          fileId,
          coverPath,
          locateCover};
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
