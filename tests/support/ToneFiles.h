#pragma once
// A sine tone cut into WAV files, and the reading of what the capture output
// recorded (16-bit stereo, 44.1 kHz, raw), for tests that listen to playback.

#include <cmath>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <numbers>
#include <optional>
#include <string>
#include <vector>

namespace testing_support {

constexpr int kToneRate = 44100;

// Frames [first, first + count) of a 440 Hz tone at the amplitude given (1 is
// full scale), so that two cuts with adjoining ranges make one continuous tone.
inline void WriteToneWav(const std::string& path, long first, long count, double amplitude) {
  std::ofstream out(path, std::ios::binary);
  auto u32 = [&out](std::uint32_t v) { out.write(reinterpret_cast<const char*>(&v), 4); };
  auto u16 = [&out](std::uint16_t v) { out.write(reinterpret_cast<const char*>(&v), 2); };
  const auto data = static_cast<std::uint32_t>(count * 4);
  out.write("RIFF", 4);
  u32(36 + data);
  out.write("WAVEfmt ", 8);
  u32(16), u16(1), u16(2), u32(kToneRate), u32(kToneRate * 4), u16(4), u16(16);
  out.write("data", 4);
  u32(data);
  for (long i = first; i < first + count; ++i) {
    const auto sample = static_cast<std::int16_t>(
        std::lround(amplitude * 32767 * std::sin(2 * std::numbers::pi * 440.0 * static_cast<double>(i) / kToneRate)));
    u16(static_cast<std::uint16_t>(sample)), u16(static_cast<std::uint16_t>(sample));
  }
}

// The left channel of a capture.
inline std::vector<std::int16_t> ReadCapture(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  std::vector<std::int16_t> left(bytes.size() / 4);
  for (std::size_t i = 0; i < left.size(); ++i)
    left[i] = static_cast<std::int16_t>(static_cast<std::uint8_t>(bytes[4 * i]) |
                                        (static_cast<std::uint8_t>(bytes[4 * i + 1]) << 8));
  return left;
}

// What was heard: where sound begins and ends, the longest quiet run in
// between (in frames), and the loudest sample of a stretch.
struct Heard {
  explicit Heard(std::vector<std::int16_t> recorded) : samples(std::move(recorded)) {
    for (std::size_t i = 0; i < samples.size(); ++i) {
      if (!Loud(i)) continue;
      if (!begins) begins = i;
      ends = i + 1;
    }
    std::size_t run = 0;
    for (std::size_t i = begins.value_or(0); i < ends; ++i) {
      run = Loud(i) ? 0 : run + 1;
      if (run > longestQuiet) longestQuiet = run, quietEnds = i + 1;
    }
  }
  bool Loud(std::size_t i) const { return std::abs(samples[i]) > 200; }
  int Peak(std::size_t from, std::size_t to) const {
    int peak = 0;
    for (std::size_t i = from; i < to && i < samples.size(); ++i) peak = std::max(peak, std::abs(int{samples[i]}));
    return peak;
  }
  std::size_t Length() const { return begins ? ends - *begins : 0; }

  std::vector<std::int16_t> samples;
  std::optional<std::size_t> begins;
  std::size_t ends = 0;
  std::size_t longestQuiet = 0;
  std::size_t quietEnds = 0;  // where the longest quiet run ends
};

}  // namespace testing_support
