#include "playlists/FileIds.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// atoi from position i, with overflow clamped instead of undefined.
std::int32_t ReadNumber(const std::string& text, std::size_t i) {
  while (i < text.size() && IsSpace(text[i])) ++i;
  bool negative = false;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';
  constexpr std::int64_t kLimit = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
  std::int64_t magnitude = 0;
  for (; i < text.size() && IsDigit(text[i]); ++i) magnitude = std::min(kLimit, magnitude * 10 + (text[i] - '0'));
  const std::int64_t value = negative ? -magnitude : std::min(magnitude, kLimit - 1);
  return static_cast<std::int32_t>(value);
}

}  // namespace

std::string BuildIdList(const IdList& ids) {
  std::string text;
  for (std::size_t i = 0; i < ids.size(); ++i) {
    if (i > 0) text += ',';
    text += std::to_string(ids[i]);
  }
  return text;
}

IdList ParseIdList(const std::string& text) {
  IdList ids;
  std::size_t position = 0;
  for (;;) {
    const std::int32_t number = ReadNumber(text, position);
    if (number > 0) ids.push_back(number);
    const std::size_t comma = text.find(',', position);
    if (comma == std::string::npos) return ids;
    position = comma + 1;
  }
}

IdList UniqueIds(const IdList& ids) {
  IdList unique;
  for (std::int32_t id : ids)
    if (IndexOf(id, unique, 0) == -1) unique.push_back(id);
  return unique;
}

int IndexOf(std::int32_t value, const IdList& ids, int start) {
  for (std::size_t i = start < 0 ? 0 : static_cast<std::size_t>(start); i < ids.size(); ++i)
    if (ids[i] == value) return static_cast<int>(i);
  return -1;
}
