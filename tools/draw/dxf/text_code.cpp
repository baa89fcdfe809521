#include <tools/draw/dxf/text_code.h>

#include <algorithm>
#include <iterator>

#include <quorvan/text/utf8.h>

namespace quorvan::tool {

namespace {

constexpr char32_t kDelete = 0x7F;
constexpr char32_t kFirstLatin = 0xA0;
constexpr char32_t kLastLatin = 0xFF;
constexpr char32_t kLastOfFourDigits = 0xFFFF;
constexpr char32_t kDiameterSign = 0x2300;
constexpr char32_t kEmptySet = 0x2205;  // stands in for it
constexpr char32_t kLargeStroke = 0xD8;
constexpr char32_t kSmallStroke = 0xF8;

// What windows-1252 has from 0x80 to 0x9F; 0 where it has nothing.
constexpr char16_t kFrom80[] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

bool isControl(char32_t character) {
  return character < U' ' || (character >= kDelete && character < kFirstLatin);
}

// Whether a number follows, behind a blank at most.
bool isBeforeNumber(const char* at, const char* end) {
  if (at != end && *at == ' ') {
    ++at;
  }
  return at != end && *at >= '0' && *at <= '9';
}

std::string escaped(char32_t character) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  if (character > kLastOfFourDigits) {
    return "?";
  }
  std::string code = "\\U+";
  for (unsigned shift = 16; shift > 0;) {
    shift -= 4;
    code += kDigits[character >> shift & 0xFU];
  }
  return code;
}

std::string codeOf(char32_t character, bool isDiameter, TextLosses& losses) {
  if (isDiameter) {
    return "%%c";
  }
  if (character == U'^') {
    return "^ ";
  }
  if (isControl(character)) {
    losses.isBroken = true;
    return " ";
  }
  if (character < kDelete || (character >= kFirstLatin && character <= kLastLatin)) {
    return {static_cast<char>(static_cast<unsigned char>(character))};
  }
  if (const auto* const place = std::ranges::find(kFrom80, static_cast<char16_t>(character));
      character <= kLastOfFourDigits && place != std::end(kFrom80)) {
    return {static_cast<char>(static_cast<unsigned char>(0x80 + (place - kFrom80)))};
  }
  losses.isEscaped = true;
  return escaped(character);
}

}  // namespace

std::string dxfText(std::string_view utf8, std::size_t most, TextLosses& losses) {
  std::string out;
  const char* at = utf8.data();
  const char* const end = at + utf8.size();
  while (at != end) {
    const char32_t character = decodeUtf8(at, end);
    const bool isStroke = character == kLargeStroke || character == kSmallStroke;
    const bool isDiameter = character == kDiameterSign || character == kEmptySet ||
                            (isStroke && isBeforeNumber(at, end));
    const std::string code = codeOf(character, isDiameter, losses);
    if (out.size() + code.size() > most) {
      losses.isCut = true;
      break;
    }
    out += code;
  }
  return out;
}

}  // namespace quorvan::tool
