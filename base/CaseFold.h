#pragma once
// Folds the letter case of UTF-8 text for matching without regard to case:
// every letter that has a case, not only A to Z ("Łódź" and "łódź", "ΣΊΣΥΦΟΣ"
// and "σίσυφοσ" fold alike). A code point folds to the lower case of its
// upper case, so that "ß" and "ẞ", "ς" and "Σ" meet; bytes that are not valid
// UTF-8 stay as they are. The mapping is the C library's for the C.UTF-8
// locale, held by the object: no global locale is touched.
//
// Const members may be called from any thread.

#include <locale.h>

#include <array>
#include <string>
#include <string_view>

class CaseFold {
 public:
  CaseFold();
  ~CaseFold();
  CaseFold(const CaseFold&) = delete;
  CaseFold& operator=(const CaseFold&) = delete;

  std::string Fold(std::string_view text) const;
  // Appends the folded text to out.
  void AppendFolded(std::string_view text, std::string& out) const;
  // Whether the text, folded, holds foldedPart (itself the result of Fold)
  // as a run of bytes. An empty part is held by every text.
  bool Holds(std::string_view text, std::string_view foldedPart) const;

 private:
  // Writes the folded text at out, which must hold twice the text's length;
  // returns the folded length.
  std::size_t FoldInto(std::string_view text, char* out) const;
  // Calls use with the folded text and returns what it returns.
  template <class Use>
  auto WithFolded(std::string_view text, Use use) const;
  char32_t FoldCodePoint(char32_t c) const;
  char32_t FoldLookedUp(char32_t c) const { return c < kTabled ? tabled_[c] : FoldCodePoint(c); }

  // The code points of one and two UTF-8 bytes (Latin, Greek, Cyrillic and
  // more) fold through a table: the C library's lookups cost most of a
  // search through a large library.
  static constexpr char32_t kTabled = 0x800;

  locale_t utf8_;
  std::array<char32_t, kTabled> tabled_{};
};
