// The decimal digits of all scripts that the Microsoft run-time's number functions know.
#pragma once

namespace quorvan::text {

/// The zero of every other script's ten digits, in ascending order.
inline constexpr char32_t kOtherZeros[] = {
    0x0660,  // Arabic-Indic
    0x06F0,  // Extended Arabic-Indic
    0x0966,  // Devanagari
    0x09E6,  // Bengali
    0x0A66,  // Gurmukhi
    0x0AE6,  // Gujarati
    0x0B66,  // Oriya
    0x0C66,  // Telugu
    0x0CE6,  // Kannada
    0x0D66,  // Malayalam
    0x0E50,  // Thai
    0x0ED0,  // Lao
    0x0F20,  // Tibetan
    0x1040,  // Myanmar
    0x17E0,  // Khmer
    0x1810,  // Mongolian
    0xFF10,  // full width
};

/// The value of the decimal digit, -1 when the character is none.
constexpr int decimalDigit(char32_t character) noexcept {
  if (character >= U'0' && character <= U'9') {
    return static_cast<int>(character - U'0');
  }
  if (character < kOtherZeros[0]) {
    return -1;
  }
  for (const char32_t zero : kOtherZeros) {
    if (character >= zero && character <= zero + 9) {
      return static_cast<int>(character - zero);
    }
  }
  return -1;
}

}  // namespace quorvan::text
