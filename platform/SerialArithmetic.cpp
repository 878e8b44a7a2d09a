#include "platform/SerialArithmetic.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "base/AsciiCase.h"

namespace platform {
namespace {

constexpr std::uint8_t kPrimaryDescriptor = 1;
constexpr std::uint8_t kSupplementaryDescriptor = 2;
constexpr std::uint8_t kSetTerminator = 255;
constexpr std::size_t kEscapeSequenceOffset = 88;

bool IsIso9660Descriptor(std::span<const std::uint8_t, kCdSectorSize> sector) {
  return std::memcmp(sector.data() + 1, "CD001", 5) == 0;
}

// A supplementary descriptor is Joliet when its escape sequence names one of
// the three UCS-2 levels.
bool IsJoliet(std::span<const std::uint8_t, kCdSectorSize> sector) {
  if (sector[0] != kSupplementaryDescriptor) return false;
  const std::uint8_t* escape = sector.data() + kEscapeSequenceOffset;
  return escape[0] == '%' && escape[1] == '/' && (escape[2] == '@' || escape[2] == 'C' || escape[2] == 'E');
}

std::optional<std::uint32_t> ParseHex(std::string_view digits) {
  if (digits.empty() || digits.size() > 8) return std::nullopt;
  std::uint32_t value = 0;
  for (char c : digits) {
    int digit;
    if (c >= '0' && c <= '9')
      digit = c - '0';
    else if (c >= 'a' && c <= 'f')
      digit = c - 'a' + 10;
    else if (c >= 'A' && c <= 'F')
      digit = c - 'A' + 10;
    else
      return std::nullopt;
    value = value << 4 | static_cast<std::uint32_t>(digit);
  }
  return value;
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

constexpr std::uint32_t kFnvOffset = 2166136261u;
constexpr std::uint32_t kFnvPrime = 16777619u;

std::uint32_t FnvAdd(std::uint32_t hash, std::uint8_t byte) { return (hash ^ byte) * kFnvPrime; }

bool IsOneOf(std::string_view value, std::initializer_list<std::string_view> names) {
  return std::find(names.begin(), names.end(), value) != names.end();
}

}  // namespace

std::uint32_t DescriptorChecksum(std::span<const std::uint8_t, kCdSectorSize> descriptor) {
  std::array<std::uint8_t, 4> counters{};
  for (std::size_t i = 0; i < descriptor.size(); ++i)
    counters[i % 4] = static_cast<std::uint8_t>(counters[i % 4] + descriptor[i]);
  return std::uint32_t{counters[0]} << 24 | std::uint32_t{counters[1]} << 16 | std::uint32_t{counters[2]} << 8 |
         std::uint32_t{counters[3]};
}

std::optional<std::uint32_t> DiscSerial(std::span<const std::uint8_t> descriptorSet) {
  std::optional<std::uint32_t> primary;
  for (std::size_t at = 0; at + kCdSectorSize <= descriptorSet.size(); at += kCdSectorSize) {
    std::span<const std::uint8_t, kCdSectorSize> sector(descriptorSet.data() + at, kCdSectorSize);
    if (!IsIso9660Descriptor(sector) || sector[0] == kSetTerminator) break;
    if (IsJoliet(sector)) return DescriptorChecksum(sector);
    if (sector[0] == kPrimaryDescriptor && !primary) primary = DescriptorChecksum(sector);
  }
  return primary;
}

std::optional<std::uint32_t> FatSerial(std::string_view uuid) {
  if (uuid.size() != 9 || uuid[4] != '-') return std::nullopt;
  auto high = ParseHex(uuid.substr(0, 4));
  auto low = ParseHex(uuid.substr(5, 4));
  if (!high || !low) return std::nullopt;
  return *high << 16 | *low;
}

std::optional<std::uint32_t> NtfsSerial(std::string_view uuid) {
  if (uuid.size() != 16 || !ParseHex(uuid.substr(0, 8))) return std::nullopt;
  return ParseHex(uuid.substr(8));
}

std::uint32_t HashedSerial(std::string_view uuid) {
  std::uint32_t hash = kFnvOffset;
  for (char c : uuid) hash = FnvAdd(hash, static_cast<std::uint8_t>(AsciiLower(c)));
  return hash;
}

std::uint32_t SerialFromUuid(std::string_view fsType, std::string_view uuid) {
  const bool unknownType = fsType.empty() || fsType == "fuseblk";
  if (unknownType || IsOneOf(fsType, {"vfat", "msdos", "fat", "exfat"})) {
    if (auto serial = FatSerial(uuid)) return *serial;
  }
  if (unknownType || IsOneOf(fsType, {"ntfs", "ntfs3"})) {
    if (auto serial = NtfsSerial(uuid)) return *serial;
  }
  return HashedSerial(uuid);
}

std::uint32_t SerialFromFsid(std::uint32_t word0, std::uint32_t word1) {
  std::uint32_t hash = kFnvOffset;
  for (std::uint32_t word : {word0, word1})
    for (int shift = 0; shift < 32; shift += 8) hash = FnvAdd(hash, static_cast<std::uint8_t>(word >> shift));
  return hash;
}

std::uint32_t MixPathIntoSerial(std::uint32_t serial, std::string_view pathInFileSystem) {
  std::uint32_t hash = kFnvOffset;
  for (int shift = 24; shift >= 0; shift -= 8) hash = FnvAdd(hash, static_cast<std::uint8_t>(serial >> shift));
  for (char c : pathInFileSystem) hash = FnvAdd(hash, static_cast<std::uint8_t>(c));
  return hash;
}

std::optional<std::uint32_t> ParseSerialText(std::string_view text) { return ParseHex(Trim(text)); }

}  // namespace platform
