// The characters of the plain form by what they may be part of.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace quorvan::embedded::plain_form {

enum CharacterClass : std::uint8_t { kOther, kNameStart, kNamePart, kBlank };

constexpr std::array<std::uint8_t, 256> makeCharacterClasses() {
  std::array<std::uint8_t, 256> classes = {};
  for (std::size_t unit = 0; unit < 128; ++unit) {
    const auto lower = static_cast<char>(unit | 0x20U);
    if ((lower >= 'a' && lower <= 'z') || unit == '_') {
      classes[unit] = kNameStart;
    }
    if ((unit >= '0' && unit <= '9') || unit == '-' || unit == '.') {
      classes[unit] = kNamePart;
    }
    if (unit == ' ' || unit == '\t' || unit == '\n' || unit == '\r') {
      classes[unit] = kBlank;
    }
  }
  return classes;
}

inline constexpr std::array<std::uint8_t, 256> kCharacterClasses = makeCharacterClasses();

inline std::uint8_t classOf(char unit) noexcept {
  return kCharacterClasses[static_cast<unsigned char>(unit)];
}

/// The first character from `at` on that is no blank.
inline const char* skipBlanks(const char* at) noexcept {
  while (classOf(*at) == kBlank) {
    ++at;
  }
  return at;
}

}  // namespace quorvan::embedded::plain_form
