#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "platform/SerialArithmetic.h"

namespace platform {
namespace {

using Sector = std::vector<std::uint8_t>;

Sector Descriptor(std::uint8_t type, const char* escape = nullptr) {
  Sector sector(kCdSectorSize, 0);
  sector[0] = type;
  std::memcpy(sector.data() + 1, "CD001", 5);
  if (escape) std::memcpy(sector.data() + 88, escape, 3);
  return sector;
}

std::vector<std::uint8_t> DescriptorSet(const std::vector<Sector>& sectors) {
  std::vector<std::uint8_t> set;
  for (const Sector& sector : sectors) set.insert(set.end(), sector.begin(), sector.end());
  return set;
}

std::uint32_t Checksum(const Sector& sector) {
  return DescriptorChecksum(std::span<const std::uint8_t, kCdSectorSize>(sector.data(), kCdSectorSize));
}

TEST(SerialArithmetic, DescriptorChecksumAddsIntoFourWrappingCounters) {
  Sector sector(kCdSectorSize, 0);
  sector[0] = 0x80;
  sector[4] = 0x80;
  sector[8] = 0x01;  // counter 0: 0x80 + 0x80 wraps to 0, then 1
  sector[1] = 0x12;
  sector[2] = 0x34;
  sector[3] = 0x50;
  sector[2047] = 0x06;  // the last byte goes into counter 3
  EXPECT_EQ(Checksum(sector), 0x01123456u);
}

TEST(SerialArithmetic, DiscSerialPrefersJolietOverPrimary) {
  Sector primary = Descriptor(1);
  primary[100] = 7;
  Sector joliet = Descriptor(2, "%/E");
  joliet[200] = 9;
  Sector otherSupplementary = Descriptor(2, "ABC");
  Sector terminator = Descriptor(255);

  EXPECT_EQ(DiscSerial(DescriptorSet({primary, otherSupplementary, joliet, terminator})), Checksum(joliet));
  EXPECT_EQ(DiscSerial(DescriptorSet({primary, otherSupplementary, terminator})), Checksum(primary));
  for (const char* level : {"%/@", "%/C"})
    EXPECT_EQ(DiscSerial(DescriptorSet({primary, Descriptor(2, level), terminator})), Checksum(Descriptor(2, level)));
  // Nothing after the terminator counts, and a set that is not ISO 9660 has no serial.
  EXPECT_EQ(DiscSerial(DescriptorSet({primary, terminator, joliet})), Checksum(primary));
  Sector udf(kCdSectorSize, 0);
  std::memcpy(udf.data() + 1, "BEA01", 5);
  EXPECT_EQ(DiscSerial(DescriptorSet({udf, primary})), std::nullopt);
  EXPECT_EQ(DiscSerial({}), std::nullopt);
}

TEST(SerialArithmetic, UuidRulesFollowTheFileSystem) {
  EXPECT_EQ(FatSerial("1234ABCD"), std::nullopt);
  EXPECT_EQ(NtfsSerial("0123456789ABCDEG"), std::nullopt);

  EXPECT_EQ(SerialFromUuid("vfat", "1234-abcd"), 0x1234ABCDu);
  EXPECT_EQ(SerialFromUuid("exfat", "0A0B-0C0D"), 0x0A0B0C0Du);
  EXPECT_EQ(SerialFromUuid("ntfs", "0123456789ABCDEF"), 0x89ABCDEFu);
  EXPECT_EQ(SerialFromUuid("fuseblk", "0123456789ABCDEF"), 0x89ABCDEFu);
  EXPECT_EQ(SerialFromUuid("", "1234-ABCD"), 0x1234ABCDu);

  const char* ext4 = "3e6be9de-8139-11d1-9106-a43f08d823a6";
  EXPECT_EQ(SerialFromUuid("ext4", ext4), HashedSerial(ext4));
  EXPECT_EQ(HashedSerial(ext4), HashedSerial("3E6BE9DE-8139-11D1-9106-A43F08D823A6"));
  EXPECT_NE(HashedSerial(ext4), HashedSerial("3e6be9de-8139-11d1-9106-a43f08d823a7"));
  // An ext4 UUID that happens to look like a FAT one is still hashed.
  EXPECT_EQ(SerialFromUuid("ext4", "1234-ABCD"), HashedSerial("1234-ABCD"));
}

TEST(SerialArithmetic, SerialTextIsHexadecimal) {
  EXPECT_EQ(ParseSerialText("0A1B2C3D\n"), 0x0A1B2C3Du);
  EXPECT_EQ(ParseSerialText("deadbeef\r\n"), 0xDEADBEEFu);
  EXPECT_EQ(ParseSerialText(""), std::nullopt);
  EXPECT_EQ(ParseSerialText("12345678 9"), std::nullopt);
  EXPECT_EQ(ParseSerialText("123456789"), std::nullopt);
  EXPECT_EQ(ParseSerialText("0x1234"), std::nullopt);
}

}  // namespace
}  // namespace platform
