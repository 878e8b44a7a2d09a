#pragma once
// A length in seconds as minutes and seconds ("4:05"), as the media list and
// the file's details show it. minuteWidth pads the minutes with blanks.

#include <cstdio>
#include <string>

inline std::string MinutesAndSeconds(int seconds, int minuteWidth = 0) {
  char text[32];
  std::snprintf(text, sizeof text, "%*d:%02d", minuteWidth, seconds / 60, seconds % 60);
  return text;
}
