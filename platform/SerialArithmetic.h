#pragma once
// Volume serial numbers computed from bytes and text alone: the arithmetic
// behind LinuxDriveTable::Identify, kept apart from the machine so that it can
// be checked on hand-built buffers. Nothing here throws or does I/O.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace platform {

inline constexpr std::size_t kCdSectorSize = 2048;
// The volume descriptor set of a disc starts at this sector.
inline constexpr std::size_t kFirstDescriptorSector = 16;

// Checksum of one volume descriptor: byte i is added into counter i % 4, each
// counter wrapping at 8 bits, and the counters form c0 c1 c2 c3 (c0 highest).
std::uint32_t DescriptorChecksum(std::span<const std::uint8_t, kCdSectorSize> descriptor);

// The serial of a disc from its descriptor set (the sectors from sector 16 on,
// back to back): the checksum of the Joliet descriptor when there is one, else
// of the primary one. nullopt when neither comes before the terminator, the end
// of the buffer or a sector that is not an ISO 9660 descriptor.
std::optional<std::uint32_t> DiscSerial(std::span<const std::uint8_t> descriptorSet);

// FAT and exFAT: "1234-ABCD" read as 0x1234ABCD.
std::optional<std::uint32_t> FatSerial(std::string_view uuid);

// NTFS: the last eight of its sixteen hexadecimal digits.
std::optional<std::uint32_t> NtfsSerial(std::string_view uuid);

// A stable 32-bit value from a UUID of any other file system; the case of its
// letters does not matter, so blkid and /dev/disk/by-uuid agree.
std::uint32_t HashedSerial(std::string_view uuid);

// The serial for a file system of the given type ("vfat", "ntfs", "ext4"; ""
// or "fuseblk" when unknown, then the UUID's shape decides) and UUID.
std::uint32_t SerialFromUuid(std::string_view fsType, std::string_view uuid);

// The serial from the two words of the file-system id that statfs reports.
std::uint32_t SerialFromFsid(std::uint32_t word0, std::uint32_t word1);

// Mixes a folder's path inside its file system ("/Music/Rock") into the
// file system's serial, so that two folders of one disk differ.
std::uint32_t MixPathIntoSerial(std::uint32_t serial, std::string_view pathInFileSystem);

// The content of a ".windows-serial" file: hexadecimal digits, surrounding
// blanks and a line break allowed.
std::optional<std::uint32_t> ParseSerialText(std::string_view text);

}  // namespace platform
