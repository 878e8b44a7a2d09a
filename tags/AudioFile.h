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
}

namespace tags {

enum class FileKind { Unknown, OggVorbis, Mpeg, Flac, Musepack, Asf, Opus, Mp4 };

FileKind KindFromName(std::string_view path);

// The file opened by the TagLib class of its kind, with Average audio
// properties when asked for; null for Unknown. May not have parsed: ask
// Parsed.
std::unique_ptr<TagLib::File> OpenAs(FileKind kind, const std::string& localPath, bool readProperties);

// Whether the file parsed. An empty file holds nothing to read, whatever its
// type (TagLib 1.13 takes one for a valid MPEG file without frames).
bool Parsed(TagLib::File& file);

// Checked right before TagLib opens a file: opening a pipe waits for a
// writer, and reading a device may never end.
bool IsRegularFile(const std::string& localPath);

}  // namespace tags
