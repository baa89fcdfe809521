// Text on its way into the tree: UTF-8 in which XML can carry every character.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <quorvan/text/utf8.h>
#include <quorvan/xml/embedded/tree/value_list.h>

namespace quorvan::embedded {

/// For eight bytes in one word, the high bit of every byte that is not plain: not printable ASCII,
/// or one of " & < >. Above the first such byte other bits may be set as well.
constexpr std::uint64_t markNotPlain(std::uint64_t bytes) noexcept {
  constexpr std::uint64_t kOnes = 0x0101010101010101U;
  constexpr std::uint64_t kHighs = 0x80U * kOnes;
  const auto markZero = [](std::uint64_t word) { return (word - kOnes) & ~word; };
  // " and & differ in one bit, and so do < and >.
  const std::uint64_t quoteOrAmpersand = markZero((bytes | 0x04U * kOnes) ^ ('&' * kOnes));
  const std::uint64_t angle = markZero((bytes | 0x02U * kOnes) ^ ('>' * kOnes));
  const std::uint64_t control = (bytes - 0x20U * kOnes) & ~bytes;
  return (bytes | quoteOrAmpersand | angle | control) & kHighs;
}

/// Whether the text is printable ASCII with nothing to escape in XML.
bool isPlain(std::string_view text) noexcept;

/// Writes wide text as a value, at most kMaxUtf8 bytes a unit: UTF-8 with U+FFFD in the place of
/// what XML cannot carry. A surrogate pair is one character.
WrittenText putWide(char* to, std::wstring_view wide) noexcept;

/// Wide text as a value, as putWide() writes it.
class WideValue {
 public:
  /// Raises std::bad_alloc for a long text.
  explicit WideValue(std::wstring_view wide);
  WideValue(const WideValue&) = delete;
  WideValue& operator=(const WideValue&) = delete;
  ~WideValue() = default;

  /// Refers to this object.
  [[nodiscard]] const Value& value() const noexcept { return m_value; }

 private:
  static constexpr std::size_t kShort = 64;

  std::array<char, kShort * kMaxUtf8> m_short;
  std::string m_long;
  Value m_value;
};

/// Appends UTF-8, where what is no valid sequence, or what XML cannot carry, becomes U+FFFD.
void appendValue(std::string& out, std::string_view utf8);

/// Whether the text is blanks, tabs and line ends alone.
bool isWhiteSpace(std::string_view text) noexcept;

}  // namespace quorvan::embedded
