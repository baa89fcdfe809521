// The encodings in which a document can be saved.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace quorvan::embedded {

enum class Encoding : std::uint8_t {
  kUtf8,
  kUtf16LittleEndian,
  kUtf16BigEndian,
  kLatin1,
  kWindows1252,
  kAscii,
};

/// The encoding of that name, in upper or lower case. Nothing for a name that is not known here:
/// such files are neither read nor written.
std::optional<Encoding> encodingNamed(std::string_view name) noexcept;

/// Whether every character has its place in the encoding.
constexpr bool isUnicode(Encoding encoding) noexcept {
  return encoding == Encoding::kUtf8 || encoding == Encoding::kUtf16LittleEndian ||
         encoding == Encoding::kUtf16BigEndian;
}

/// The byte for the character in one of the other encodings; nothing when there is none.
std::optional<unsigned char> byteFor(char32_t character, Encoding encoding) noexcept;

/// The character of each of the 256 bytes of windows-1252. The five bytes without one stand for
/// the control characters of the same number.
char32_t windows1252Character(unsigned char byte) noexcept;

}  // namespace quorvan::embedded
