// Letters and digits of ASCII, whatever the locale.
#pragma once

#include <algorithm>
#include <string>

namespace quorvan::tool {

constexpr bool isAsciiDigit(char unit) noexcept {
  return unit >= '0' && unit <= '9';
}

constexpr char asciiLower(char unit) noexcept {
  return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit - 'A' + 'a') : unit;
}

constexpr char asciiUpper(char unit) noexcept {
  return unit >= 'a' && unit <= 'z' ? static_cast<char>(unit - 'a' + 'A') : unit;
}

/// The text with its capitals as small letters.
inline std::string asciiLower(std::string text) {
  std::ranges::transform(text, text.begin(), [](char unit) { return asciiLower(unit); });
  return text;
}

}  // namespace quorvan::tool
