#include "base/CaseFold.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <array>
#include <stdexcept>

#include "base/Utf8.h"

namespace {

char AsciiFold(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

// Letters with a stroke through them have no decomposition, yet people
// type them bare ("lodz" for "Łódź", "orsted" for "Ørsted").
UChar32 WithoutStroke(UChar32 c) {
  switch (c) {
    case 0x0142:
      return 'l';  // ł
    case 0x00F8:
      return 'o';  // ø
    case 0x0111:
      return 'd';  // đ
    case 0x0127:
      return 'h';  // ħ
    case 0x0167:
      return 't';  // ŧ
    default:
      return c;
  }
}

}  // namespace

CaseFold::CaseFold() {
  UErrorCode status = U_ZERO_ERROR;
  caseFold_ = icu::Normalizer2::getNFKCCasefoldInstance(status);
  decompose_ = icu::Normalizer2::getNFDInstance(status);
  if (U_FAILURE(status)) throw std::runtime_error(std::string("Unicode tables: ") + u_errorName(status));
}

std::string CaseFold::Fold(std::string_view text) const {
  std::string folded;
  AppendFolded(text, folded);
  return folded;
}

// Case folding and compatibility decomposition map each code point on its
// own, and once the text is decomposed and stripped of its marks nothing of
// the composition between neighbours is left; so code points fold one at a
// time. Those of one and two UTF-8 bytes (Latin, Greek, Cyrillic and more,
// and the combining accents) fold through a table made once; longer ones go
// through ICU a run at a time. A byte that is no valid UTF-8 is kept.
void CaseFold::AppendFolded(std::string_view text, std::string& out) const {
  const std::array<std::string, kTabled>& table = TwoByteTable();
  for (std::size_t i = 0; i < text.size();) {
    const char lead = text[i];
    if (static_cast<unsigned char>(lead) < 0x80) {
      // A run of ASCII is copied whole and folded in place.
      std::size_t end = i + 1;
      while (end < text.size() && static_cast<unsigned char>(text[end]) < 0x80) ++end;
      const std::size_t at = out.size();
      out.append(text, i, end - i);
      for (auto c = out.begin() + static_cast<std::ptrdiff_t>(at); c != out.end(); ++c) *c = AsciiFold(*c);
      i = end;
      continue;
    }
    char32_t c = 0;
    std::size_t length = DecodeUtf8At(text, i, c);
    if (length == 0) {
      out += lead;
      ++i;
      continue;
    }
    if (c < kTabled) {
      out += table[c];
      i += length;
      continue;
    }
    const std::size_t runStart = i;
    while (length > 0 && c >= kTabled) {
      i += length;
      length = i < text.size() ? DecodeUtf8At(text, i, c) : 0;
    }
    AppendFoldedUnicode(text.substr(runStart, i - runStart), out);
  }
}

const std::array<std::string, CaseFold::kTabled>& CaseFold::TwoByteTable() const {
  // Made once for the process, from the same rules as the longer code points.
  static const std::array<std::string, kTabled> table = [this] {
    std::array<std::string, kTabled> made;
    for (char32_t c = 0x80; c < kTabled; ++c) AppendFoldedUnicode(Utf8Of(c), made[c]);
    return made;
  }();
  return table;
}

void CaseFold::AppendFoldedUnicode(std::string_view run, std::string& out) const {
  UErrorCode status = U_ZERO_ERROR;
  const icu::UnicodeString folded = caseFold_->normalize(
      icu::UnicodeString::fromUTF8(icu::StringPiece(run.data(), static_cast<int32_t>(run.size()))), status);
  const icu::UnicodeString decomposed = decompose_->normalize(folded, status);
  if (U_FAILURE(status)) {
    out += run;  // cannot happen with valid UTF-8 and loaded tables
    return;
  }
  icu::UnicodeString bare;
  for (int32_t i = 0; i < decomposed.length();) {
    const UChar32 c = decomposed.char32At(i);
    if (u_charType(c) != U_NON_SPACING_MARK) bare.append(WithoutStroke(c));
    i += U16_LENGTH(c);
  }
  bare.toUTF8String(out);
}
