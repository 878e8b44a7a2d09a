#pragma once
// Fills the "%s" places of a message text, in order, with the given texts.

#include <initializer_list>
#include <string>

inline std::string FillMessage(const char* format, std::initializer_list<std::string> texts) {
  std::string message;
  auto next = texts.begin();
  for (const char* c = format; *c; ++c) {
    if (c[0] == '%' && c[1] == 's' && next != texts.end()) {
      message += *next++;
      ++c;
    } else {
      message += *c;
    }
  }
  return message;
}
