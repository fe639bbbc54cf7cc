// UTF-16 and UTF-8 texts: decoding, conversion, column width.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qmx {

// Returns the code point at `at` and steps over it; an unpaired surrogate is returned as it is.
char32_t NextCodePoint(std::wstring_view text, std::size_t& at);

inline bool IsSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDFFF; }

// Appends one code point; an unpaired surrogate becomes U+FFFD.
void AppendUtf8(std::string& out, char32_t c);

std::string ToUtf8(std::wstring_view text);
std::wstring ToWide(std::string_view utf8);

// Columns on a terminal: 2 for East Asian wide characters, 0 for combining ones.
std::size_t TextColumns(std::wstring_view text);

// A text for one line of a terminal: control characters, which could drive it, become spaces.
std::wstring OneLine(std::wstring_view text);

std::wstring_view Trim(std::wstring_view text);

// Splits at CR LF, CR or LF; line ends at the end of the text add no empty line.
std::wstring_view TakeLine(std::wstring_view& rest);

// The text up to its NUL, at most `capacity` characters.
std::wstring_view BoundedText(const wchar_t* text, std::size_t capacity);

}  // namespace qmx
