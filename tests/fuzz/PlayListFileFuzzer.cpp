// Play list files come from other programs and from anyone: any text, read
// as M3U, PLS or XSPF, gives absolute paths or URLs; and the paths written
// back as M3U or XSPF read back as the same paths.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "playlists/PlayListFileReader.h"
#include "playlists/PlayListFileWriter.h"
#include "tests/fuzz/FuzzCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  for (const auto format : {PlayListFileFormat::M3u, PlayListFileFormat::Pls, PlayListFileFormat::Xspf}) {
    std::vector<PlayListFileEntry> entries;
    std::vector<std::string> paths;
    for (const std::string& path : ReadPlayListFile(format, text, "/list")) {
      FUZZ_CHECK(path.starts_with('/') || path.find("://") != std::string::npos);
      if (!path.starts_with('/')) continue;
      entries.push_back({path, text.substr(0, 40), text.substr(0, 20), 1});
      paths.push_back(path);
    }
    for (const auto written : {PlayListFileFormat::M3u, PlayListFileFormat::Xspf})
      FUZZ_CHECK(ReadPlayListFile(written, WritePlayListFile(written, entries), "/elsewhere") == paths);
  }
  return 0;
}
