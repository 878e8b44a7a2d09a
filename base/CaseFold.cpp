#include "base/CaseFold.h"

#include <cstring>
#include <cwctype>

#include "base/Utf8.h"

namespace {

char AsciiFold(unsigned char c) { return static_cast<char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c); }

}  // namespace

CaseFold::CaseFold() : utf8_(newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(nullptr))) {
  for (char32_t c = 0; c < kTabled; ++c) tabled_[c] = FoldCodePoint(c);
}

CaseFold::~CaseFold() {
  if (utf8_) freelocale(utf8_);
}

char32_t CaseFold::FoldCodePoint(char32_t c) const {
  if (!utf8_) return c;  // no Unicode tables: only A to Z fold
  const auto wide = static_cast<wint_t>(c);
  return static_cast<char32_t>(towlower_l(towupper_l(wide, utf8_), utf8_));
}

// A folded code point takes at most one byte more than the sequence it came
// from (two bytes may fold to three), so twice the text's length always fits.
std::size_t CaseFold::FoldInto(std::string_view text, char* out) const {
  char* const start = out;
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    if (lead < 0x80) {
      *out++ = AsciiFold(lead);
      ++i;
      continue;
    }
    char32_t c = 0;
    const std::size_t length = DecodeUtf8At(text, i, c);
    if (length == 0) {
      *out++ = text[i++];
      continue;
    }
    out = EncodeUtf8(FoldLookedUp(c), out);
    i += length;
  }
  return static_cast<std::size_t>(out - start);
}

std::string CaseFold::Fold(std::string_view text) const {
  std::string folded;
  AppendFolded(text, folded);
  return folded;
}

// Short texts (names and tags mostly are) fold on the stack: a long buffer
// of many short texts is then never cleared ahead nor grown more than it needs.
template <class Use>
auto CaseFold::WithFolded(std::string_view text, Use use) const {
  constexpr std::size_t kOnStack = 256;
  char onStack[2 * kOnStack];
  if (text.size() <= kOnStack) return use(std::string_view(onStack, FoldInto(text, onStack)));
  std::string onHeap(2 * text.size(), '\0');
  return use(std::string_view(onHeap.data(), FoldInto(text, onHeap.data())));
}

void CaseFold::AppendFolded(std::string_view text, std::string& out) const {
  WithFolded(text, [&](std::string_view folded) { out += folded; });
}

namespace {

// Whether an all-ASCII text holds the folded part, comparing as it goes; -1
// when the text holds a byte above ASCII (which may fold to anything).
int AsciiHolds(std::string_view text, std::string_view part) {
  const auto first = static_cast<unsigned char>(part[0]);
  const unsigned char firstUpper = first >= 'a' && first <= 'z' ? first - ('a' - 'A') : first;
  const std::size_t last = text.size() >= part.size() ? text.size() - part.size() : 0;
  bool found = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c >= 0x80) return -1;
    if (found || i > last || text.size() < part.size() || (c != first && c != firstUpper)) continue;
    std::size_t k = 1;
    while (k < part.size() && AsciiFold(static_cast<unsigned char>(text[i + k])) == part[k]) ++k;
    found = k == part.size();
  }
  return found ? 1 : 0;
}

}  // namespace

bool CaseFold::Holds(std::string_view text, std::string_view foldedPart) const {
  if (foldedPart.empty()) return true;
  if (static_cast<unsigned char>(foldedPart[0]) < 0x80) {
    const int ascii = AsciiHolds(text, foldedPart);
    if (ascii >= 0) return ascii == 1;
  }
  return WithFolded(text, [&](std::string_view folded) { return folded.find(foldedPart) != std::string_view::npos; });
}
