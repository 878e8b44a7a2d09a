#include "tags/AudioFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <taglib/asffile.h>
#include <taglib/audioproperties.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2framefactory.h>
#include <taglib/mp4file.h>
#include <taglib/mpcfile.h>
#include <taglib/mpegfile.h>
#include <taglib/opusfile.h>
#include <taglib/tfilestream.h>
#include <taglib/vorbisfile.h>
#include <unistd.h>

#include "catalogue/MediaTypes.h"

namespace tags {

FileKind KindFromName(std::string_view path) {
  if (path.size() <= 4 || path.find('.') == std::string_view::npos) return FileKind::Unknown;
  switch (MediaTypeOfName(path)) {
    case kOgg:
      return FileKind::OggVorbis;
    case kMp3:
      return FileKind::Mpeg;
    case kFlac:
      return FileKind::Flac;
    case kMusepack:
      return FileKind::Musepack;
    case kWma:
      return FileKind::Asf;
    case kOpus:
      return FileKind::Opus;
    case kM4a:
      return FileKind::Mp4;
    case kNotMedia:
      break;
  }
  return FileKind::Unknown;
}

OpenedAudio::OpenedAudio() = default;
OpenedAudio::OpenedAudio(std::unique_ptr<TagLib::FileStream> stream, std::unique_ptr<TagLib::File> file)
    : stream_(std::move(stream)), file_(std::move(file)) {}
OpenedAudio::OpenedAudio(OpenedAudio&&) noexcept = default;
OpenedAudio::~OpenedAudio() = default;

namespace {

std::unique_ptr<TagLib::File> OpenStreamAs(FileKind kind, TagLib::FileStream* stream, bool readProperties) {
  constexpr auto style = TagLib::AudioProperties::Average;
  const auto frames = TagLib::ID3v2::FrameFactory::instance();
  switch (kind) {
    case FileKind::OggVorbis:
      return std::make_unique<TagLib::Ogg::Vorbis::File>(stream, readProperties, style);
    case FileKind::Mpeg:
      return std::make_unique<TagLib::MPEG::File>(stream, frames, readProperties, style);
    case FileKind::Flac:
      return std::make_unique<TagLib::FLAC::File>(stream, frames, readProperties, style);
    case FileKind::Musepack:
      return std::make_unique<TagLib::MPC::File>(stream, readProperties, style);
    case FileKind::Asf:
      return std::make_unique<TagLib::ASF::File>(stream, readProperties, style);
    case FileKind::Opus:
      return std::make_unique<TagLib::Ogg::Opus::File>(stream, readProperties, style);
    case FileKind::Mp4:
      return std::make_unique<TagLib::MP4::File>(stream, readProperties, style);
    case FileKind::Unknown:
      break;
  }
  return nullptr;
}

// A descriptor of the regular file at the path, or -1.
int OpenRegularFile(const std::string& localPath) {
  const int fd = open(localPath.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (fd == -1) return -1;
  struct stat facts {};
  if (fstat(fd, &facts) == 0 && S_ISREG(facts.st_mode)) return fd;
  close(fd);
  return -1;
}

}  // namespace

OpenedAudio OpenAs(FileKind kind, const std::string& localPath, bool readProperties) {
  if (kind == FileKind::Unknown) return {};
  const int fd = OpenRegularFile(localPath);
  if (fd == -1) return {};
  // The stream owns the descriptor from here on.
  auto stream = std::make_unique<TagLib::FileStream>(fd, true);
  if (!stream->isOpen()) {
    close(fd);
    return {};
  }
  std::unique_ptr<TagLib::File> file = OpenStreamAs(kind, stream.get(), readProperties);
  return {std::move(stream), std::move(file)};
}

bool Parsed(TagLib::File& file) { return file.isValid() && file.length() > 0; }

bool IsRegularFile(const std::string& localPath) {
  struct stat facts {};
  return stat(localPath.c_str(), &facts) == 0 && S_ISREG(facts.st_mode);
}

}  // namespace tags
