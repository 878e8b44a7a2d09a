#include "base/CaseFold.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

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

// Runs of valid UTF-8 fold as a whole, so that a combining mark meets the
// letter before it; a byte that is no valid UTF-8 ends the run and is kept.
void CaseFold::AppendFolded(std::string_view text, std::string& out) const {
  std::size_t runStart = 0;
  bool runAboveAscii = false;
  const auto endRun = [&](std::size_t end) {
    const std::string_view run = text.substr(runStart, end - runStart);
    if (runAboveAscii) {
      AppendFoldedUnicode(run, out);
    } else {
      for (char c : run) out += AsciiFold(c);
    }
    runAboveAscii = false;
  };
  for (std::size_t i = 0; i < text.size();) {
    if (static_cast<unsigned char>(text[i]) < 0x80) {
      ++i;
      continue;
    }
    char32_t c = 0;
    if (const std::size_t length = DecodeUtf8At(text, i, c); length > 0) {
      runAboveAscii = true;
      i += length;
      continue;
    }
    endRun(i);
    out += text[i];
    runStart = ++i;
  }
  endRun(text.size());
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
