#include "platform/mci/ReplayGain.h"

#include <charconv>
#include <cmath>
#include <string>

#include "base/AsciiCase.h"

namespace platform::mci {
namespace {

// Opus gains are measured against -23 LUFS, ReplayGain's against about -18.
constexpr double kR128ToReplayGainDb = 5.0;
constexpr double kQ78 = 256.0;

struct Picked {
  std::optional<double> gain;
  std::optional<double> peak;
};

Picked Pick(const ReplayGainTags& tags, ReplayGainMode mode) {
  const bool album = mode == ReplayGainMode::Album;
  Picked first{album ? tags.albumGain : tags.trackGain, album ? tags.albumPeak : tags.trackPeak};
  Picked second{album ? tags.trackGain : tags.albumGain, album ? tags.trackPeak : tags.albumPeak};
  if (!first.gain) return second;
  if (!first.peak) first.peak = second.peak;
  return first;
}

std::optional<double> ParseLeadingNumber(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '+')) text.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || !std::isfinite(value)) return std::nullopt;
  return value;
}

}  // namespace

double ReplayGainFactor(const ReplayGainTags& tags, ReplayGainMode mode) {
  if (mode == ReplayGainMode::Off) return 1.0;
  const Picked picked = Pick(tags, mode);
  if (!picked.gain) return 1.0;
  double factor = std::pow(10.0, *picked.gain / 20.0);
  if (picked.peak && *picked.peak > 0 && factor * *picked.peak > 1.0) factor = 1.0 / *picked.peak;
  return factor;
}

std::optional<ReplayGainMode> ReplayGainModeFromText(std::string_view text) {
  if (EqualIgnoringAsciiCase(text, "off")) return ReplayGainMode::Off;
  if (EqualIgnoringAsciiCase(text, "track")) return ReplayGainMode::Track;
  if (EqualIgnoringAsciiCase(text, "album")) return ReplayGainMode::Album;
  return std::nullopt;
}

void ReadReplayGainComment(std::string_view comment, ReplayGainTags& tags) {
  const auto equals = comment.find('=');
  if (equals == std::string_view::npos) return;
  const std::string_view key = comment.substr(0, equals);
  const auto value = ParseLeadingNumber(comment.substr(equals + 1));
  if (!value) return;
  if (EqualIgnoringAsciiCase(key, "REPLAYGAIN_TRACK_GAIN")) tags.trackGain = *value;
  if (EqualIgnoringAsciiCase(key, "REPLAYGAIN_TRACK_PEAK")) tags.trackPeak = *value;
  if (EqualIgnoringAsciiCase(key, "REPLAYGAIN_ALBUM_GAIN")) tags.albumGain = *value;
  if (EqualIgnoringAsciiCase(key, "REPLAYGAIN_ALBUM_PEAK")) tags.albumPeak = *value;
  if (EqualIgnoringAsciiCase(key, "R128_TRACK_GAIN")) tags.trackGain = *value / kQ78 + kR128ToReplayGainDb;
  if (EqualIgnoringAsciiCase(key, "R128_ALBUM_GAIN")) tags.albumGain = *value / kQ78 + kR128ToReplayGainDb;
}

}  // namespace platform::mci
