// The FileIDs text of a stored play list comes from the catalogue file, which
// anyone may have edited: any text gives positive ids only, and the text built
// from them reads back as the same ids.

#include <cstddef>
#include <cstdint>
#include <string>

#include "playlists/FileIds.h"
#include "tests/fuzz/FuzzCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const IdList ids = ParseIdList(text);
  std::size_t commas = 0;
  for (char c : text) commas += c == ',';
  FUZZ_CHECK(ids.size() <= commas + 1);
  for (std::int32_t id : ids) FUZZ_CHECK(id > 0);
  FUZZ_CHECK(ParseIdList(BuildIdList(ids)) == ids);
  return 0;
}
