#include <quorvan/text/utf8.h>

#include <algorithm>
#include <climits>
#include <stdexcept>

namespace quorvan {

namespace {

constexpr bool isHighSurrogate(char32_t unit) noexcept {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool isLowSurrogate(char32_t unit) noexcept {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

// What a lead byte promises: the bytes that follow it, and the range of the first of them, which
// keeps out overlong forms, surrogates and what lies beyond U+10FFFF.
struct Sequence {
  int following;
  unsigned char low;
  unsigned char high;
};

constexpr Sequence sequenceOf(unsigned char lead) noexcept {
  if (lead >= 0xC2 && lead <= 0xDF) {
    return {1, 0x80, 0xBF};
  }
  if (lead == 0xE0) {
    return {2, 0xA0, 0xBF};
  }
  if (lead == 0xED) {
    return {2, 0x80, 0x9F};
  }
  if (lead >= 0xE1 && lead <= 0xEF) {
    return {2, 0x80, 0xBF};
  }
  if (lead == 0xF0) {
    return {3, 0x90, 0xBF};
  }
  if (lead >= 0xF1 && lead <= 0xF3) {
    return {3, 0x80, 0xBF};
  }
  if (lead == 0xF4) {
    return {3, 0x80, 0x8F};
  }
  return {0, 0, 0};
}

wchar_t* appendWide(wchar_t* out, char32_t character) noexcept {
  if constexpr (sizeof(wchar_t) == 2) {
    if (character > 0xFFFF) {
      const char32_t rest = character - 0x10000;
      *out++ = static_cast<wchar_t>(0xD800 + (rest >> 10U));
      *out++ = static_cast<wchar_t>(0xDC00 + (rest & 0x3FFU));
      return out;
    }
  }
  *out++ = static_cast<wchar_t>(character);
  return out;
}

}  // namespace

char32_t decodeUtf8(const char*& at, const char* end) noexcept {
  const auto lead = static_cast<unsigned char>(*at++);
  if (lead < 0x80) {
    return lead;
  }
  const Sequence sequence = sequenceOf(lead);
  if (sequence.following == 0) {
    return kReplacementCharacter;
  }
  char32_t character = lead & (0x3FU >> static_cast<unsigned>(sequence.following));
  unsigned char low = sequence.low;
  unsigned char high = sequence.high;
  for (int i = 0; i < sequence.following; ++i) {
    if (at == end) {
      return kReplacementCharacter;
    }
    const auto unit = static_cast<unsigned char>(*at);
    if (unit < low || unit > high) {
      return kReplacementCharacter;
    }
    character = (character << 6U) | (unit & 0x3FU);
    low = 0x80;
    high = 0xBF;
    ++at;
  }
  return character;
}

char32_t decodeWide(const wchar_t*& at, const wchar_t* end) noexcept {
  const auto unit = static_cast<char32_t>(*at++);
  if (isHighSurrogate(unit)) {
    if (at == end || !isLowSurrogate(static_cast<char32_t>(*at))) {
      return kReplacementCharacter;
    }
    const auto low = static_cast<char32_t>(*at++);
    return 0x10000 + ((unit - 0xD800) << 10U) + (low - 0xDC00);
  }
  return isLowSurrogate(unit) || unit > 0x10FFFF ? kReplacementCharacter : unit;
}

char* putUtf8(char* to, char32_t character) noexcept {
  const auto tail = [&](unsigned shift) {
    return static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
  };
  if (character < 0x80) {
    *to++ = static_cast<char>(character);
    return to;
  }
  if (character < 0x800) {
    *to++ = static_cast<char>(0xC0U | (character >> 6U));
  } else {
    if (character < 0x10000) {
      *to++ = static_cast<char>(0xE0U | (character >> 12U));
    } else {
      *to++ = static_cast<char>(0xF0U | (character >> 18U));
      *to++ = tail(12);
    }
    *to++ = tail(6);
  }
  *to++ = tail(0);
  return to;
}

void appendUtf8(std::string& out, char32_t character) {
  char units[kMaxUtf8];
  out.append(units, putUtf8(units, character));
}

void appendUtf8(std::string& out, std::wstring_view wide) {
  const wchar_t* at = wide.data();
  const wchar_t* const end = at + wide.size();
  const wchar_t* const firstOther =
      std::find_if(at, end, [](wchar_t unit) { return static_cast<char32_t>(unit) >= 0x80; });
  const std::size_t before = out.size();
  out.resize(before + static_cast<std::size_t>(firstOther - at));
  std::transform(at, firstOther, out.data() + before,
                 [](wchar_t unit) { return static_cast<char>(unit); });
  for (at = firstOther; at != end;) {
    appendUtf8(out, decodeWide(at, end));
  }
}

std::string toUtf8(std::wstring_view wide) {
  std::string out;
  appendUtf8(out, wide);
  return out;
}

CString fromUtf8(std::string_view utf8) {
  const char* at = utf8.data();
  const char* const end = at + utf8.size();
  CString text;
  // No character takes more wide units than it has bytes.
  if (utf8.size() > static_cast<std::size_t>(INT_MAX)) {
    throw std::length_error("text too long");
  }
  wchar_t* const begin = text.GetBuffer(static_cast<int>(utf8.size()));
  wchar_t* out = begin;
  while (at != end) {
    const auto unit = static_cast<unsigned char>(*at);
    if (unit < 0x80) {
      *out++ = static_cast<wchar_t>(unit);
      ++at;
    } else {
      out = appendWide(out, decodeUtf8(at, end));
    }
  }
  text.ReleaseBuffer(static_cast<int>(out - begin));
  return text;
}

}  // namespace quorvan
