#include "tags/CTagReader.h"

#include <taglib/asffile.h>
#include <taglib/audioproperties.h>
#include <taglib/flacfile.h>
#include <taglib/mpcfile.h>
#include <taglib/mpegfile.h>
#include <taglib/tag.h>
#include <taglib/vorbisfile.h>
#include <sys/stat.h>

#include <memory>
#include <string_view>

#include "base/AsciiCase.h"

namespace {

enum class FileKind { Unknown, OggVorbis, Mpeg, Flac, Musepack, Asf };

FileKind KindFromName(std::string_view path) {
  if (path.size() <= 4) return FileKind::Unknown;
  if (EndsWithIgnoringAsciiCase(path, ".OGG")) return FileKind::OggVorbis;
  if (EndsWithIgnoringAsciiCase(path, ".MP3")) return FileKind::Mpeg;
  if (EndsWithIgnoringAsciiCase(path, ".FLAC")) return FileKind::Flac;
  if (EndsWithIgnoringAsciiCase(path, ".MPC")) return FileKind::Musepack;
  if (EndsWithIgnoringAsciiCase(path, ".WMA")) return FileKind::Asf;
  return FileKind::Unknown;
}

// Constructs the TagLib class for the kind directly, so TagLib never guesses
// the type from the content.
std::unique_ptr<TagLib::File> OpenAs(FileKind kind, const char* localPath) {
  constexpr bool readProperties = true;
  constexpr auto style = TagLib::AudioProperties::Average;
  switch (kind) {
    case FileKind::OggVorbis:
      return std::make_unique<TagLib::Ogg::Vorbis::File>(localPath, readProperties, style);
    case FileKind::Mpeg:
      return std::make_unique<TagLib::MPEG::File>(localPath, readProperties, style);
    case FileKind::Flac:
      return std::make_unique<TagLib::FLAC::File>(localPath, readProperties, style);
    case FileKind::Musepack:
      return std::make_unique<TagLib::MPC::File>(localPath, readProperties, style);
    case FileKind::Asf:
      return std::make_unique<TagLib::ASF::File>(localPath, readProperties, style);
    case FileKind::Unknown:
      break;
  }
  return nullptr;
}

bool IsTrailingWhiteSpace(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

// Cut before the sequence that would not fit whole: a byte that continues a
// sequence (10xxxxxx) never starts the part cut away.
void CutUtf8(std::string& utf8, std::size_t limit) {
  if (utf8.size() <= limit) return;
  std::size_t end = limit;
  while (end > 0 && (static_cast<unsigned char>(utf8[end]) & 0xC0) == 0x80) --end;
  utf8.resize(end);
}

std::string Utf8WithoutTrailingWhiteSpace(const TagLib::String& text) {
  // No character takes less than a byte, so the first kMaxTagTextBytes
  // characters hold all that can be kept; the rest is never converted.
  std::string utf8 = text.substr(0, static_cast<unsigned int>(CTagReader::kMaxTagTextBytes)).to8Bit(true);
  CutUtf8(utf8, CTagReader::kMaxTagTextBytes);
  std::size_t end = utf8.size();
  while (end > 0 && IsTrailingWhiteSpace(utf8[end - 1])) --end;
  utf8.resize(end);
  return utf8;
}

void CopyTag(const TagLib::Tag& tag, CMediaFile& record) {
  record.id3Title = Utf8WithoutTrailingWhiteSpace(tag.title());
  record.id3Artist = Utf8WithoutTrailingWhiteSpace(tag.artist());
  record.id3Album = Utf8WithoutTrailingWhiteSpace(tag.album());
  record.id3Comment = Utf8WithoutTrailingWhiteSpace(tag.comment());
}

void CopyAudioProperties(const TagLib::AudioProperties& audio, CMediaFile& record) {
  record.Length = audio.lengthInSeconds();
  record.BitRate = audio.bitrate();
  record.SampleRate = audio.sampleRate();
  record.Channels = audio.channels();
}

// TagLib 1.13 takes an empty file for a valid MPEG file without frames; an
// empty file holds nothing to read, whatever its type.
bool Parsed(TagLib::File& file) {
  return file.isValid() && file.length() > 0;
}

// Checked right before TagLib opens the file: opening a pipe waits for a
// writer, and reading a device may never end.
bool IsRegularFile(const std::string& localPath) {
  struct stat facts {};
  return stat(localPath.c_str(), &facts) == 0 && S_ISREG(facts.st_mode);
}

}  // namespace

CTagReader::CTagReader(const platform::FileSystem& fileSystem) : fileSystem_(fileSystem) {}

int CTagReader::GetTag(std::string fullPath, CMediaFile& file) {
  const FileKind kind = KindFromName(fullPath);
  if (kind == FileKind::Unknown) return 0;
  const std::string localPath = fileSystem_.LocalPath(fullPath);
  if (localPath.empty() || !IsRegularFile(localPath)) return 0;

  const std::unique_ptr<TagLib::File> media = OpenAs(kind, localPath.c_str());
  if (!Parsed(*media)) return 0;
  if (const TagLib::Tag* tag = media->tag()) CopyTag(*tag, file);
  if (const TagLib::AudioProperties* audio = media->audioProperties()) {
    CopyAudioProperties(*audio, file);
  }
  return 0;
}
