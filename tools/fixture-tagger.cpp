// Writes and reports the tags of the audio fixtures; used only by
// tools/make-audio-fixtures.sh, never by the project build.
//
//   fixture-tagger write FILE KIND TITLE ARTIST ALBUM COMMENT [GENRE]
//       Removes every tag the file has, then writes one tag of KIND:
//       id3v1 | id3v2 | ape (MPEG files), vorbis, flac, mpc, asf, opus, mp4.
//       Empty fields are left out of the tag.
//   fixture-tagger picture FILE TYPE IMAGE MIME
//       Adds IMAGE as the front cover of FILE, opened as TYPE: an ID3v2 APIC
//       frame (mpeg), a picture block (flac, vorbis, opus), covr (mp4) or
//       WM/Picture (asf).
//   fixture-tagger report FILE TYPE
//       Opens FILE as TYPE (mpeg, vorbis, flac, mpc, asf, opus, mp4) with Average
//       properties and prints "length<TAB>bitrate<TAB>samplerate<TAB>channels",
//       or "invalid" when the file does not parse.
//
// Arguments are UTF-8. Exit status 0 on success, 1 on any failure.

#include <taglib/apetag.h>
#include <taglib/asffile.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/flacfile.h>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4file.h>
#include <taglib/mpcfile.h>
#include <taglib/mpegfile.h>
#include <taglib/opusfile.h>
#include <taglib/tag.h>
#include <taglib/vorbisfile.h>
#include <taglib/xiphcomment.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace {

struct Fields {
  TagLib::String title, artist, album, comment, genre;
};

TagLib::String Utf8(const std::string& text) { return TagLib::String(text, TagLib::String::UTF8); }

void Fill(TagLib::Tag& tag, const Fields& fields) {
  tag.setTitle(fields.title);
  tag.setArtist(fields.artist);
  tag.setAlbum(fields.album);
  tag.setComment(fields.comment);
  tag.setGenre(fields.genre);
}

bool WriteMpeg(const char* path, const std::string& kind, const Fields& fields) {
  TagLib::MPEG::File file(path, false);
  if (!file.isValid()) return false;
  file.strip(TagLib::MPEG::File::AllTags);
  int which = 0;
  if (kind == "id3v1") {
    Fill(*file.ID3v1Tag(true), fields);
    which = TagLib::MPEG::File::ID3v1;
  } else if (kind == "id3v2") {
    Fill(*file.ID3v2Tag(true), fields);
    which = TagLib::MPEG::File::ID3v2;
  } else if (kind == "ape") {
    Fill(*file.APETag(true), fields);
    which = TagLib::MPEG::File::APE;
  } else {
    return false;
  }
  return file.save(which, TagLib::File::StripOthers, TagLib::ID3v2::v4, TagLib::File::DoNotDuplicate);
}

void RemoveAllFields(TagLib::Ogg::XiphComment& tag) {
  const TagLib::Ogg::FieldListMap fields = tag.fieldListMap();  // a copy: removing changes the map
  for (const auto& field : fields) tag.removeFields(field.first);
}

bool WriteVorbis(const char* path, const Fields& fields) {
  TagLib::Ogg::Vorbis::File file(path, false);
  if (!file.isValid()) return false;
  TagLib::Ogg::XiphComment* tag = file.tag();
  RemoveAllFields(*tag);
  Fill(*tag, fields);
  return file.save();
}

bool WriteOpus(const char* path, const Fields& fields) {
  TagLib::Ogg::Opus::File file(path, false);
  if (!file.isValid()) return false;
  TagLib::Ogg::XiphComment* tag = file.tag();
  RemoveAllFields(*tag);
  Fill(*tag, fields);
  return file.save();
}

bool WriteMp4(const char* path, const Fields& fields) {
  TagLib::MP4::File file(path, false);
  if (!file.isValid()) return false;
  Fill(*file.tag(), fields);
  return file.save();
}

bool WriteFlac(const char* path, const Fields& fields) {
  TagLib::FLAC::File file(path, false);
  if (!file.isValid()) return false;
  file.strip(TagLib::FLAC::File::ID3v1 | TagLib::FLAC::File::ID3v2);
  Fill(*file.xiphComment(true), fields);
  return file.save();
}

bool WriteMpc(const char* path, const Fields& fields) {
  TagLib::MPC::File file(path, false);
  if (!file.isValid()) return false;
  file.strip(TagLib::MPC::File::AllTags);
  Fill(*file.APETag(true), fields);
  return file.save();
}

bool WriteAsf(const char* path, const Fields& fields) {
  TagLib::ASF::File file(path, false);
  if (!file.isValid()) return false;
  TagLib::ASF::Tag* tag = file.tag();
  for (const auto& attribute : tag->attributeListMap()) tag->removeItem(attribute.first);
  Fill(*tag, fields);
  return file.save();
}

int Write(const std::vector<std::string>& args) {
  if (args.size() < 7 || args.size() > 8) return 1;
  const char* path = args[1].c_str();
  const std::string& kind = args[2];
  Fields fields{Utf8(args[3]), Utf8(args[4]), Utf8(args[5]), Utf8(args[6]),
                args.size() == 8 ? Utf8(args[7]) : TagLib::String()};
  bool saved = false;
  if (kind == "id3v1" || kind == "id3v2" || kind == "ape")
    saved = WriteMpeg(path, kind, fields);
  else if (kind == "vorbis")
    saved = WriteVorbis(path, fields);
  else if (kind == "flac")
    saved = WriteFlac(path, fields);
  else if (kind == "mpc")
    saved = WriteMpc(path, fields);
  else if (kind == "asf")
    saved = WriteAsf(path, fields);
  else if (kind == "opus")
    saved = WriteOpus(path, fields);
  else if (kind == "mp4")
    saved = WriteMp4(path, fields);
  if (!saved) std::cerr << "fixture-tagger: could not tag " << path << " as " << kind << "\n";
  return saved ? 0 : 1;
}

std::unique_ptr<TagLib::File> OpenAs(const std::string& type, const char* path) {
  constexpr auto style = TagLib::AudioProperties::Average;
  if (type == "mpeg") return std::make_unique<TagLib::MPEG::File>(path, true, style);
  if (type == "vorbis") return std::make_unique<TagLib::Ogg::Vorbis::File>(path, true, style);
  if (type == "flac") return std::make_unique<TagLib::FLAC::File>(path, true, style);
  if (type == "mpc") return std::make_unique<TagLib::MPC::File>(path, true, style);
  if (type == "asf") return std::make_unique<TagLib::ASF::File>(path, true, style);
  if (type == "opus") return std::make_unique<TagLib::Ogg::Opus::File>(path, true, style);
  if (type == "mp4") return std::make_unique<TagLib::MP4::File>(path, true, style);
  return nullptr;
}

TagLib::FLAC::Picture* XiphPicture(const TagLib::ByteVector& image, const TagLib::String& mime) {
  auto* picture = new TagLib::FLAC::Picture;  // owned by the tag it is added to
  picture->setType(TagLib::FLAC::Picture::FrontCover);
  picture->setMimeType(mime);
  picture->setData(image);
  return picture;
}

bool AddPicture(const std::string& type, const char* path, const TagLib::ByteVector& image,
                const TagLib::String& mime) {
  if (type == "mpeg") {
    TagLib::MPEG::File file(path, false);
    auto* frame = new TagLib::ID3v2::AttachedPictureFrame;
    frame->setType(TagLib::ID3v2::AttachedPictureFrame::FrontCover);
    frame->setMimeType(mime);
    frame->setPicture(image);
    file.ID3v2Tag(true)->addFrame(frame);
    return file.save(TagLib::MPEG::File::ID3v2, TagLib::File::StripNone, TagLib::ID3v2::v4);
  }
  if (type == "flac") {
    TagLib::FLAC::File file(path, false);
    file.addPicture(XiphPicture(image, mime));
    return file.save();
  }
  if (type == "vorbis") {
    TagLib::Ogg::Vorbis::File file(path, false);
    file.tag()->addPicture(XiphPicture(image, mime));
    return file.save();
  }
  if (type == "opus") {
    TagLib::Ogg::Opus::File file(path, false);
    file.tag()->addPicture(XiphPicture(image, mime));
    return file.save();
  }
  if (type == "mp4") {
    TagLib::MP4::File file(path, false);
    const auto format = mime == "image/png" ? TagLib::MP4::CoverArt::PNG : TagLib::MP4::CoverArt::JPEG;
    file.tag()->setItem("covr", TagLib::MP4::CoverArtList().append(TagLib::MP4::CoverArt(format, image)));
    return file.save();
  }
  if (type == "asf") {
    TagLib::ASF::File file(path, false);
    TagLib::ASF::Picture picture;
    picture.setType(TagLib::ASF::Picture::FrontCover);
    picture.setMimeType(mime);
    picture.setPicture(image);
    file.tag()->addAttribute("WM/Picture", TagLib::ASF::Attribute(picture));
    return file.save();
  }
  return false;
}

int Picture(const std::vector<std::string>& args) {
  if (args.size() != 5) return 1;
  std::ifstream in(args[3], std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  const TagLib::ByteVector image(bytes.data(), static_cast<unsigned int>(bytes.size()));
  const bool saved = !bytes.empty() && AddPicture(args[2], args[1].c_str(), image, Utf8(args[4]));
  if (!saved) std::cerr << "fixture-tagger: could not add a picture to " << args[1] << "\n";
  return saved ? 0 : 1;
}

int Report(const std::vector<std::string>& args) {
  if (args.size() != 3) return 1;
  const auto file = OpenAs(args[2], args[1].c_str());
  if (!file) return 1;
  const TagLib::AudioProperties* audio = file->isValid() ? file->audioProperties() : nullptr;
  if (!audio) {
    std::cout << "invalid\n";
    return 0;
  }
  std::cout << audio->length() << '\t' << audio->bitrate() << '\t' << audio->sampleRate() << '\t' << audio->channels()
            << '\n';
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + 1, argv + argc);
  if (args.empty()) return 1;
  if (args[0] == "write") return Write(args);
  if (args[0] == "report") return Report(args);
  if (args[0] == "picture") return Picture(args);
  return 1;
}
