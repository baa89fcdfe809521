// Which characters count as blank, whatever the locale.
#pragma once

namespace quorvan::text {

constexpr bool isAsciiWhiteSpace(char32_t character) noexcept {
  return character == U' ' || (character >= U'\t' && character <= U'\r');
}

/// White space as the Microsoft run-time's iswspace has it.
constexpr bool isWhiteSpace(char32_t character) noexcept {
  if (character < 0x80) {
    return isAsciiWhiteSpace(character);
  }
  switch (character) {
    case 0x0085:
    case 0x00A0:
    case 0x1680:
    case 0x2028:
    case 0x2029:
    case 0x202F:
    case 0x205F:
    case 0x3000:
      return true;
    default:
      return character >= 0x2000 && character <= 0x200A;
  }
}

}  // namespace quorvan::text
