// The ".windows-serial" file at a volume's root and the UUIDs blkid reports:
// a serial read from text is the hexadecimal number written there, and
// writing a serial the usual ways reads back as the same serial.

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/SerialArithmetic.h"
#include "tests/fuzz/FuzzCheck.h"

namespace {

std::string Hex(const char* format, std::uint32_t a, std::uint32_t b = 0) {
  char text[24];
  std::snprintf(text, sizeof text, format, a, b);
  return text;
}

void CheckParsedText(std::string_view text, std::uint32_t serial) {
  std::string digits;
  for (char c : text)
    if (!std::isspace(static_cast<unsigned char>(c))) digits += c;
  FUZZ_CHECK(!digits.empty() && digits.size() <= 8);
  for (char c : digits) FUZZ_CHECK(std::isxdigit(static_cast<unsigned char>(c)));
  FUZZ_CHECK(std::strtoul(digits.c_str(), nullptr, 16) == serial);
}

void CheckWrittenSerials(std::uint32_t serial) {
  FUZZ_CHECK(platform::ParseSerialText(Hex("%08X\n", serial)) == serial);
  FUZZ_CHECK(platform::ParseSerialText(Hex(" %x ", serial)) == serial);
  FUZZ_CHECK(platform::FatSerial(Hex("%04X-%04X", serial >> 16, serial & 0xFFFF)) == serial);
  FUZZ_CHECK(platform::NtfsSerial(Hex("%08X%08X", ~serial, serial)) == serial);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (const auto serial = platform::ParseSerialText(text)) CheckParsedText(text, *serial);
  platform::FatSerial(text);
  platform::NtfsSerial(text);
  platform::SerialFromUuid("", text);
  platform::DiscSerial({data, size});
  if (size >= 4) CheckWrittenSerials(std::uint32_t{data[0]} << 24 | data[1] << 16 | data[2] << 8 | data[3]);
  return 0;
}
