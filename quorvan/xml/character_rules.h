// Which characters XML can carry in a value, and what becomes of the others.
#pragma once

#include <string>
#include <string_view>

namespace quorvan::dom {

/// Whether XML 1.0 can carry the code point: no control characters but TAB, LF and CR, no
/// surrogates, not U+FFFE and U+FFFF.
constexpr bool isXmlCharacter(char32_t code) noexcept {
  if (code < 0x20) {
    return code == 0x9 || code == 0xA || code == 0xD;
  }
  return code <= 0xD7FF || (code >= 0xE000 && code <= 0xFFFD) ||
         (code >= 0x10000 && code <= 0x10FFFF);
}

/// Whether XML can carry every character of the wide text.
bool isXmlText(std::wstring_view text) noexcept;

/// The wide text with U+FFFD in the place of every character that XML cannot carry: a file that
/// holds one could not be opened again.
std::wstring toXmlText(std::wstring_view text);

}  // namespace quorvan::dom
