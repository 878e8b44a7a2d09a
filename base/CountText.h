#pragma once
// Counts as the progress lines and the status line show them: digits in
// groups of three ("12,345"), and "12,345 of 100,000 files".

#include <cstdint>
#include <string>

inline std::string GroupedDigits(std::int64_t number) {
  const std::string digits = std::to_string(number);
  const std::size_t first = number < 0 ? 1 : 0;  // after the sign
  std::string grouped = digits.substr(0, first);
  for (std::size_t at = first; at < digits.size(); ++at) {
    if (at > first && (digits.size() - at) % 3 == 0) grouped += ',';
    grouped += digits[at];
  }
  return grouped;
}

// "1 file", "2 files": the noun given in the singular and the plural.
inline std::string Counted(std::int64_t count, const char* one, const char* many) {
  return GroupedDigits(count) + " " + (count == 1 ? one : many);
}

inline std::string CountOfTotal(std::int64_t count, std::int64_t total, const char* one, const char* many) {
  return GroupedDigits(count) + " of " + Counted(total, one, many);
}
