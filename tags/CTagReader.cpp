#include "tags/CTagReader.h"

#include <taglib/audioproperties.h>
#include <taglib/tag.h>
#include <taglib/tfile.h>

#include <algorithm>
#include <memory>

#include "base/Utf8.h"
#include "tags/AudioFile.h"

namespace {

// Higher numbers would not fit the record's integer.
constexpr unsigned int kHighestTrack = 0x7fffffff;

bool IsTrailingWhiteSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f'; }

std::string Utf8WithoutTrailingWhiteSpace(const TagLib::String& text) {
  // No character takes less than a byte, so the first kMaxTagTextBytes
  // characters hold all that can be kept; the rest is never converted.
  std::string utf8 = text.substr(0, static_cast<unsigned int>(CTagReader::kMaxTagTextBytes)).to8Bit(true);
  utf8.resize(Utf8CutAt(utf8, CTagReader::kMaxTagTextBytes));
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
  record.Track = static_cast<std::int32_t>(std::min(tag.track(), kHighestTrack));
}

void CopyAudioProperties(const TagLib::AudioProperties& audio, CMediaFile& record) {
  record.Length = audio.lengthInSeconds();
  record.BitRate = audio.bitrate();
  record.SampleRate = audio.sampleRate();
  record.Channels = audio.channels();
}

}  // namespace

CTagReader::CTagReader(const platform::FileSystem& fileSystem) : fileSystem_(fileSystem) {}

int CTagReader::GetTag(std::string fullPath, CMediaFile& file) {
  const tags::FileKind kind = tags::KindFromName(fullPath);
  if (kind == tags::FileKind::Unknown) return 0;
  const std::string localPath = fileSystem_.LocalPath(fullPath);
  if (localPath.empty()) return 0;

  const tags::OpenedAudio media = tags::OpenAs(kind, localPath, true);
  if (!media || !tags::Parsed(*media)) return 0;
  if (const TagLib::Tag* tag = media->tag()) CopyTag(*tag, file);
  if (const TagLib::AudioProperties* audio = media->audioProperties()) {
    CopyAudioProperties(*audio, file);
  }
  return 0;
}
