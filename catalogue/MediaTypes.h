#pragma once
// The media types kept in MediaFiles.Type, and the file name endings that
// give them: the one list that scans record by and the tag reader opens by.

#include <string_view>

#include "base/AsciiCase.h"

enum MediaType : int {
  kNotMedia = 0,
  kMp3 = 1,
  kOgg = 2,
  kWma = 3,
  // Recorded only when the user asks for every audio format.
  kFlac = 4,
  kMusepack = 5,
  kOpus = 6,
  kM4a = 7,
};

// The media type of a name's ending (after its last "."), without regard to
// ASCII case; kNotMedia for any other ending.
inline MediaType MediaTypeOfName(std::string_view name) {
  struct Ending {
    std::string_view text;
    MediaType type;
  };
  static constexpr Ending kEndings[] = {{"mp3", kMp3},      {"ogg", kOgg},   {"wma", kWma}, {"flac", kFlac},
                                        {"mpc", kMusepack}, {"opus", kOpus}, {"m4a", kM4a}};
  const std::size_t dot = name.rfind('.');
  const std::string_view ending = dot == std::string_view::npos ? name : name.substr(dot + 1);
  for (const Ending& known : kEndings)
    if (EqualIgnoringAsciiCase(ending, known.text)) return known.type;
  return kNotMedia;
}
