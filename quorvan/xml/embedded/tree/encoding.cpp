#include <quorvan/xml/embedded/tree/encoding.h>

#include <algorithm>
#include <iterator>

namespace quorvan::embedded {

namespace {

struct NamedEncoding {
  std::string_view name;
  Encoding encoding;
};

// "ISO8859-1" is a common misspelling.
constexpr NamedEncoding kNames[] = {
    {"utf-8", Encoding::kUtf8},
    {"utf-16", Encoding::kUtf16LittleEndian},
    {"utf-16le", Encoding::kUtf16LittleEndian},
    {"utf-16be", Encoding::kUtf16BigEndian},
    {"iso-8859-1", Encoding::kLatin1},
    {"iso8859-1", Encoding::kLatin1},
    {"windows-1252", Encoding::kWindows1252},
    {"us-ascii", Encoding::kAscii},
};

// Bytes 0x80 to 0x9F of windows-1252.
constexpr char16_t kWindows1252Specials[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr unsigned char kFirstSpecial = 0x80;

constexpr char toLower(char unit) noexcept {
  return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit + ('a' - 'A')) : unit;
}

}  // namespace

std::optional<Encoding> encodingNamed(std::string_view name) noexcept {
  for (const NamedEncoding& known : kNames) {
    if (std::equal(name.begin(), name.end(), known.name.begin(), known.name.end(),
                   [](char a, char b) { return toLower(a) == b; })) {
      return known.encoding;
    }
  }
  return std::nullopt;
}

std::optional<unsigned char> byteFor(char32_t character, Encoding encoding) noexcept {
  if (character < 0x80) {
    return static_cast<unsigned char>(character);
  }
  if (encoding == Encoding::kAscii) {
    return std::nullopt;
  }
  if (encoding == Encoding::kWindows1252 && (character < 0xA0 || character > 0xFF)) {
    const auto* const special =
        std::find(std::begin(kWindows1252Specials), std::end(kWindows1252Specials), character);
    if (special == std::end(kWindows1252Specials)) {
      return std::nullopt;
    }
    return static_cast<unsigned char>(kFirstSpecial + (special - kWindows1252Specials));
  }
  if (character > 0xFF) {
    return std::nullopt;
  }
  return static_cast<unsigned char>(character);
}

char32_t windows1252Character(unsigned char byte) noexcept {
  return byte >= 0x80 && byte < 0xA0 ? kWindows1252Specials[byte - kFirstSpecial] : byte;
}

}  // namespace quorvan::embedded
