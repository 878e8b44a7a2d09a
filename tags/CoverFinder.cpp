#include "tags/CoverFinder.h"

#include <taglib/apetag.h>
#include <taglib/asffile.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4file.h>
#include <taglib/mpcfile.h>
#include <taglib/mpegfile.h>
#include <taglib/opusfile.h>
#include <taglib/vorbisfile.h>
#include <taglib/xiphcomment.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "base/AsciiCase.h"
#include "platform/FileSystem.h"
#include "platform/SmallFile.h"
#include "tags/AudioFile.h"
#include "tags/PictureSize.h"

namespace {

// A picture TagLib found, with whether it says it is the front cover.
struct Candidate {
  TagLib::ByteVector bytes;
  bool front = false;
};
using Candidates = std::vector<Candidate>;

void AddXiphPictures(const TagLib::List<TagLib::FLAC::Picture*>& pictures, Candidates& found) {
  for (const TagLib::FLAC::Picture* picture : pictures)
    found.push_back({picture->data(), picture->type() == TagLib::FLAC::Picture::FrontCover});
}

void AddId3v2Pictures(TagLib::ID3v2::Tag* tag, Candidates& found) {
  if (!tag) return;
  for (const TagLib::ID3v2::Frame* frame : tag->frameList("APIC"))
    if (const auto* picture = dynamic_cast<const TagLib::ID3v2::AttachedPictureFrame*>(frame))
      found.push_back({picture->picture(), picture->type() == TagLib::ID3v2::AttachedPictureFrame::FrontCover});
}

void AddMp4Pictures(TagLib::MP4::Tag* tag, Candidates& found) {
  if (!tag || !tag->contains("covr")) return;
  for (const TagLib::MP4::CoverArt& art : tag->item("covr").toCoverArtList()) found.push_back({art.data(), true});
}

void AddAsfPictures(TagLib::ASF::Tag* tag, Candidates& found) {
  if (!tag || !tag->contains("WM/Picture")) return;
  for (const TagLib::ASF::Attribute& attribute : tag->attribute("WM/Picture")) {
    const TagLib::ASF::Picture picture = attribute.toPicture();
    if (picture.isValid()) found.push_back({picture.picture(), picture.type() == TagLib::ASF::Picture::FrontCover});
  }
}

// An APE binary item: the picture's file name, a zero byte, the picture.
void AddApePictures(TagLib::APE::Tag* tag, Candidates& found) {
  if (!tag) return;
  const auto& items = tag->itemListMap();
  const auto item = items.find("COVER ART (FRONT)");
  if (item == items.end()) return;
  const TagLib::ByteVector data = item->second.binaryData();
  const int zero = data.find('\0');
  if (zero >= 0) found.push_back({data.mid(static_cast<unsigned int>(zero) + 1), true});
}

Candidates EmbeddedPictures(tags::FileKind kind, TagLib::File& file) {
  Candidates found;
  using tags::FileKind;
  switch (kind) {
    case FileKind::Mpeg:
      AddId3v2Pictures(static_cast<TagLib::MPEG::File&>(file).ID3v2Tag(), found);
      break;
    case FileKind::Flac: {
      auto& flac = static_cast<TagLib::FLAC::File&>(file);
      AddXiphPictures(flac.pictureList(), found);
      if (flac.hasXiphComment()) AddXiphPictures(flac.xiphComment()->pictureList(), found);
      break;
    }
    case FileKind::OggVorbis:
      AddXiphPictures(static_cast<TagLib::Ogg::Vorbis::File&>(file).tag()->pictureList(), found);
      break;
    case FileKind::Opus:
      AddXiphPictures(static_cast<TagLib::Ogg::Opus::File&>(file).tag()->pictureList(), found);
      break;
    case FileKind::Mp4:
      AddMp4Pictures(static_cast<TagLib::MP4::File&>(file).tag(), found);
      break;
    case FileKind::Asf:
      AddAsfPictures(static_cast<TagLib::ASF::File&>(file).tag(), found);
      break;
    case FileKind::Musepack:
      AddApePictures(static_cast<TagLib::MPC::File&>(file).APETag(), found);
      break;
    case FileKind::Unknown:
      break;
  }
  return found;
}

// The embedded picture to show; none, with tooLarge set when a picture was
// passed over for its size.
std::optional<CoverPicture> Embedded(const std::string& localPath, bool& tooLarge) {
  const tags::FileKind kind = tags::KindFromName(localPath);
  if (kind == tags::FileKind::Unknown) return std::nullopt;
  const tags::OpenedAudio file = tags::OpenAs(kind, localPath, false);
  if (!file || !tags::Parsed(*file)) return std::nullopt;
  const Candidates found = EmbeddedPictures(kind, *file);
  const Candidate* chosen = nullptr;
  for (const Candidate& candidate : found) {
    // Only the first bytes are looked at before the size is known to be fine.
    const std::string start(candidate.bytes.data(),
                            std::min<std::size_t>(candidate.bytes.size(), std::size_t{64} * 1024));
    if (!CoverFinder::LooksLikePicture(start)) continue;
    if (candidate.bytes.size() > CoverFinder::kMaxPictureBytes || !CoverFinder::SmallEnough(start)) {
      tooLarge = true;
      continue;
    }
    if (!chosen || (candidate.front && !chosen->front)) chosen = &candidate;
  }
  if (!chosen) return std::nullopt;
  return CoverPicture{CoverPicture::Source::Embedded, "", std::string(chosen->bytes.data(), chosen->bytes.size())};
}

// The folder's entries that bear one of the names, in the names' order.
std::vector<std::filesystem::path> FolderCandidates(const std::filesystem::path& folder) {
  std::vector<std::vector<std::filesystem::path>> byName(CoverFinder::kFolderNames.size());
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    for (std::size_t i = 0; i < CoverFinder::kFolderNames.size(); ++i)
      if (EqualIgnoringAsciiCase(name, CoverFinder::kFolderNames[i])) byName[i].push_back(entry->path());
  }
  std::vector<std::filesystem::path> ordered;
  if (error) return ordered;  // a folder not read to the end tells nothing for sure
  for (auto& paths : byName) ordered.insert(ordered.end(), paths.begin(), paths.end());
  return ordered;
}

std::optional<CoverPicture> InFolder(const std::string& localPath) {
  const std::filesystem::path folder = std::filesystem::path(localPath).parent_path();
  for (const std::filesystem::path& candidate : FolderCandidates(folder)) {
    std::optional<std::string> bytes = platform::ReadSmallFile(candidate.string(), CoverFinder::kMaxPictureBytes);
    if (bytes && CoverFinder::LooksLikePicture(*bytes) && CoverFinder::SmallEnough(*bytes))
      return CoverPicture{CoverPicture::Source::FolderFile, candidate.filename().string(), std::move(*bytes)};
  }
  return std::nullopt;
}

bool StartsWith(const std::string& bytes, std::string_view start, std::size_t at = 0) {
  return bytes.size() >= at + start.size() && bytes.compare(at, start.size(), start) == 0;
}

}  // namespace

std::string CoverPicture::Describe() const {
  const std::string note = embeddedTooLarge ? " (embedded picture too large)" : "";
  switch (source) {
    case Source::Embedded:
      return "embedded";
    case Source::FolderFile:
      return fileName + note;
    case Source::None:
      break;
  }
  return "none" + note;
}

bool CoverFinder::SmallEnough(const std::string& bytes) {
  const std::optional<PictureSize> size = ReadPictureSize(bytes);
  return size && size->width > 0 && size->height > 0 && size->width <= kMaxDimension && size->height <= kMaxDimension;
}

CoverFinder::CoverFinder(const platform::FileSystem& fileSystem) : fileSystem_(fileSystem) {}

bool CoverFinder::LooksLikePicture(const std::string& bytes) {
  using namespace std::string_view_literals;
  return StartsWith(bytes, "\xFF\xD8\xFF"sv) || StartsWith(bytes, "\x89PNG\r\n\x1A\n"sv) ||
         StartsWith(bytes, "GIF87a"sv) || StartsWith(bytes, "GIF89a"sv) || StartsWith(bytes, "BM"sv) ||
         (StartsWith(bytes, "RIFF"sv) && StartsWith(bytes, "WEBP"sv, 8));
}

CoverPicture CoverFinder::Find(const std::string& fullPath) const {
  try {
    const std::string localPath = fileSystem_.LocalPath(fullPath);
    if (localPath.empty() || !tags::IsRegularFile(localPath)) return {};
    bool tooLarge = false;
    if (auto embedded = Embedded(localPath, tooLarge)) return std::move(*embedded);
    CoverPicture inFolder = InFolder(localPath).value_or(CoverPicture{});
    inFolder.embeddedTooLarge = tooLarge;
    return inFolder;
  } catch (const std::exception&) {
    // A picture is only ever a nicety: whatever went wrong, there is none.
  }
  return {};
}
