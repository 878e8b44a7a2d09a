#include "platform/SmallFile.h"

#include <filesystem>
#include <fstream>

namespace platform {

std::optional<std::string> ReadSmallFile(const std::string& path, std::size_t limit) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  const auto size = std::filesystem::file_size(path, error);
  if (error || size > limit) return std::nullopt;
  std::ifstream in(path, std::ios::binary);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  if (!in || !in.read(bytes.data(), static_cast<std::streamsize>(size))) return std::nullopt;
  return bytes;
}

}  // namespace platform
