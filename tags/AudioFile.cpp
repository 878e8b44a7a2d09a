#include "tags/AudioFile.h"

#include <sys/stat.h>
#include <taglib/asffile.h>
#include <taglib/audioproperties.h>
#include <taglib/flacfile.h>
#include <taglib/mp4file.h>
#include <taglib/mpcfile.h>
#include <taglib/mpegfile.h>
#include <taglib/opusfile.h>
#include <taglib/vorbisfile.h>

#include "base/AsciiCase.h"

namespace tags {

FileKind KindFromName(std::string_view path) {
  if (path.size() <= 4) return FileKind::Unknown;
  if (EndsWithIgnoringAsciiCase(path, ".OGG")) return FileKind::OggVorbis;
  if (EndsWithIgnoringAsciiCase(path, ".MP3")) return FileKind::Mpeg;
  if (EndsWithIgnoringAsciiCase(path, ".FLAC")) return FileKind::Flac;
  if (EndsWithIgnoringAsciiCase(path, ".MPC")) return FileKind::Musepack;
  if (EndsWithIgnoringAsciiCase(path, ".WMA")) return FileKind::Asf;
  if (EndsWithIgnoringAsciiCase(path, ".OPUS")) return FileKind::Opus;
  if (EndsWithIgnoringAsciiCase(path, ".M4A")) return FileKind::Mp4;
  return FileKind::Unknown;
}

std::unique_ptr<TagLib::File> OpenAs(FileKind kind, const std::string& localPath, bool readProperties) {
  constexpr auto style = TagLib::AudioProperties::Average;
  const char* path = localPath.c_str();
  switch (kind) {
    case FileKind::OggVorbis: return std::make_unique<TagLib::Ogg::Vorbis::File>(path, readProperties, style);
    case FileKind::Mpeg: return std::make_unique<TagLib::MPEG::File>(path, readProperties, style);
    case FileKind::Flac: return std::make_unique<TagLib::FLAC::File>(path, readProperties, style);
    case FileKind::Musepack: return std::make_unique<TagLib::MPC::File>(path, readProperties, style);
    case FileKind::Asf: return std::make_unique<TagLib::ASF::File>(path, readProperties, style);
    case FileKind::Opus: return std::make_unique<TagLib::Ogg::Opus::File>(path, readProperties, style);
    case FileKind::Mp4: return std::make_unique<TagLib::MP4::File>(path, readProperties, style);
    case FileKind::Unknown: break;
  }
  return nullptr;
}

bool Parsed(TagLib::File& file) { return file.isValid() && file.length() > 0; }

bool IsRegularFile(const std::string& localPath) {
  struct stat facts {};
  return stat(localPath.c_str(), &facts) == 0 && S_ISREG(facts.st_mode);
}

}  // namespace tags
