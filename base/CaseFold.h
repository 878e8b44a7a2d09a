#pragma once
// Folds UTF-8 text for matching as people spell: letter case (full folding,
// so "STRASSE" meets "Straße"), accents and other combining marks ("edith"
// meets "Édith"), compatibility forms and widths ("fire" meets "ﬁre", "abc"
// meets "ＡＢＣ"), and canonically equivalent spellings (a precomposed "é"
// and "e" followed by a combining accent) all fold alike. The text is put in
// NFKC case-folded form, decomposed, and its non-spacing marks removed;
// the letters drawn with a stroke (ł, ø, đ) lose it too.
// ASCII folds by itself; other text goes through ICU. Bytes that are not
// valid UTF-8 stay as they are.
//
// Const members may be called from any thread.

#include <unicode/uversion.h>

#include <array>
#include <string>
#include <string_view>

U_NAMESPACE_BEGIN
class Normalizer2;
U_NAMESPACE_END

class CaseFold {
 public:
  CaseFold();
  CaseFold(const CaseFold&) = delete;
  CaseFold& operator=(const CaseFold&) = delete;

  std::string Fold(std::string_view text) const;
  // Appends the folded text to out.
  void AppendFolded(std::string_view text, std::string& out) const;

 private:
  // Code points below this fold through a table.
  static constexpr char32_t kTabled = 0x800;

  // A run of valid UTF-8, through ICU.
  void AppendFoldedUnicode(std::string_view run, std::string& out) const;
  const std::array<std::string, kTabled>& TwoByteTable() const;

  const icu::Normalizer2* caseFold_ = nullptr;
  const icu::Normalizer2* decompose_ = nullptr;
};
