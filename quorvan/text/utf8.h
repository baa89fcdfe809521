// Between wide text and UTF-8. What is no character (a lone surrogate, an invalid sequence)
// becomes U+FFFD; a surrogate pair is one character on every system.
#pragma once

#include <string>
#include <string_view>

#include <quorvan/text/cstring.h>

namespace quorvan {

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// Decodes the character at `at`, which lies before `end`, and moves `at` behind it. Of an invalid
/// sequence it passes the longest part that could begin a valid one, and at least one byte.
char32_t decodeUtf8(const char*& at, const char* end) noexcept;

/// The same for wide text.
char32_t decodeWide(const wchar_t*& at, const wchar_t* end) noexcept;

/// The most bytes of one character in UTF-8.
inline constexpr std::size_t kMaxUtf8 = 4;

/// Writes one character as UTF-8 and returns where it ends.
char* putUtf8(char* to, char32_t character) noexcept;

/// Appends one character as UTF-8.
void appendUtf8(std::string& out, char32_t character);

/// Appends the wide text as UTF-8.
void appendUtf8(std::string& out, std::wstring_view wide);

/// The wide text as UTF-8.
std::string toUtf8(std::wstring_view wide);

/// The UTF-8 text as wide text.
CString fromUtf8(std::string_view utf8);

}  // namespace quorvan
