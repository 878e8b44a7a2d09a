#pragma once
// Letter case of ASCII letters only, whatever the locale: drive letters,
// file-name endings, media-control words and aliases, typed answers.

#include <string>
#include <string_view>

inline char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
inline char AsciiUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

inline std::string AsciiLower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = AsciiLower(c);
  return lower;
}

inline bool EqualIgnoringAsciiCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (AsciiLower(a[i]) != AsciiLower(b[i])) return false;
  return true;
}

inline bool EndsWithIgnoringAsciiCase(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() && EqualIgnoringAsciiCase(text.substr(text.size() - ending.size()), ending);
}
