#pragma once
// Lengths and play times as minutes and seconds ("4:05").

#include <cstdio>
#include <string>

// A length in seconds, as the media list and the file's details show it.
// minuteWidth pads the minutes with blanks.
inline std::string MinutesAndSeconds(int seconds, int minuteWidth = 0) {
  char text[32];
  std::snprintf(text, sizeof text, "%*d:%02d", minuteWidth, seconds / 60, seconds % 60);
  return text;
}

// A play position or length in milliseconds, as the now-playing strip shows
// it: "m:ss", or "h:mm:ss" from an hour on; negative times count as 0.
inline std::string FormatPlayTime(int ms) {
  const int seconds = ms > 0 ? ms / 1000 : 0;
  if (seconds < 3600) return MinutesAndSeconds(seconds);
  char text[32];
  std::snprintf(text, sizeof text, "%d:%02d:%02d", seconds / 3600, seconds / 60 % 60, seconds % 60);
  return text;
}
