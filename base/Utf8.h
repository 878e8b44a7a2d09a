#pragma once
// UTF-8, as the catalogue's texts and Linux file names hold it. Pure
// functions of their text.

#include <cstddef>
#include <string>
#include <string_view>

// The length of the valid UTF-8 sequence at text[i] (1 for ASCII, up to 4),
// with its code point in c; 0 when the bytes there are no valid sequence (a
// stray or missing continuation byte, an overlong form, a surrogate, a code
// point above U+10FFFF), c then left as it was.
std::size_t DecodeUtf8At(std::string_view text, std::size_t i, char32_t& c);

// Writes the code point's UTF-8 bytes (one to four) at out; returns the end
// of what it wrote.
char* EncodeUtf8(char32_t c, char* out);
// The code point's UTF-8 bytes as a text.
std::string Utf8Of(char32_t c);

// The length to cut text to so that it takes at most limit bytes without
// splitting a character: the whole text when it fits, else limit less the
// bytes of a sequence the cut would split.
std::size_t Utf8CutAt(std::string_view text, std::size_t limit);
