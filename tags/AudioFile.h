#pragma once
// Which TagLib class opens a file, chosen by the name's ending alone, without
// regard to ASCII case: ".ogg", ".mp3", ".flac", ".mpc", ".wma", ".opus",
// ".m4a". The content is never sniffed, so a misnamed file fails to parse.
// Paths of four characters or fewer are never opened. Internal to tags/.

#include <memory>
#include <string>
#include <string_view>

namespace TagLib {
class File;
class FileStream;
}  // namespace TagLib

namespace tags {

enum class FileKind { Unknown, OggVorbis, Mpeg, Flac, Musepack, Asf, Opus, Mp4 };

FileKind KindFromName(std::string_view path);

// A file opened by the TagLib class of its kind, with the stream it reads.
class OpenedAudio {
 public:
  OpenedAudio();
  OpenedAudio(std::unique_ptr<TagLib::FileStream> stream, std::unique_ptr<TagLib::File> file);
  OpenedAudio(OpenedAudio&&) noexcept;
  ~OpenedAudio();

  explicit operator bool() const { return file_ != nullptr; }
  TagLib::File& operator*() const { return *file_; }
  TagLib::File* operator->() const { return file_.get(); }

 private:
  std::unique_ptr<TagLib::FileStream> stream_;
  std::unique_ptr<TagLib::File> file_;  // reads stream_: goes first
};

// The regular file at localPath opened by the TagLib class of its kind, with
// Average audio properties when asked for. The file is opened without
// waiting and checked on its descriptor, so a pipe or device with an audio
// name is never read, even one put in a file's place a moment before. Empty
// for Unknown and for what is not a regular file that can be opened; may not
// have parsed: ask Parsed.
OpenedAudio OpenAs(FileKind kind, const std::string& localPath, bool readProperties);

// Whether the file parsed. An empty file holds nothing to read, whatever its
// type (TagLib 1.13 takes one for a valid MPEG file without frames).
bool Parsed(TagLib::File& file);

// Whether a path names a regular file: opening a pipe waits for a writer,
// and reading a device may never end.
bool IsRegularFile(const std::string& localPath);

}  // namespace tags
