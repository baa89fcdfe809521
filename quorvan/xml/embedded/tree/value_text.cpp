#include <quorvan/xml/embedded/tree/value_text.h>

#include <algorithm>
#include <cstring>

#include <quorvan/xml/character_rules.h>

namespace quorvan::embedded {

namespace {

constexpr bool isPlainUnit(char32_t unit) noexcept {
  return unit >= 0x20 && unit < 0x80 && unit != '"' && unit != '&' && unit != '<' && unit != '>';
}

char32_t orReplacement(char32_t character) noexcept {
  return dom::isXmlCharacter(character) ? character : kReplacementCharacter;
}

}  // namespace

bool isPlain(std::string_view text) noexcept {
  const char* at = text.data();
  const char* const end = at + text.size();
  for (; end - at >= 8; at += 8) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, at, sizeof bytes);
    if (markNotPlain(bytes) != 0) {
      return false;
    }
  }
  return std::all_of(at, end,
                     [](char unit) { return isPlainUnit(static_cast<unsigned char>(unit)); });
}

WrittenText putWide(char* to, std::wstring_view wide) noexcept {
  // As if it were plain, which it nearly always is.
  const wchar_t* at = wide.data();
  const wchar_t* const end = at + wide.size();
  while (at != end && isPlainUnit(static_cast<char32_t>(*at))) {
    *to++ = static_cast<char>(*at++);
  }
  const bool plain = at == end;
  while (at != end) {
    to = putUtf8(to, orReplacement(decodeWide(at, end)));
  }
  return {to, plain};
}

WideValue::WideValue(std::wstring_view wide) {
  char* begin = m_short.data();
  if (wide.size() > kShort) {
    m_long.resize(wide.size() * kMaxUtf8);
    begin = m_long.data();
  }
  const WrittenText written = putWide(begin, wide);
  m_value = {{begin, static_cast<std::size_t>(written.end - begin)}, written.plain};
}

void appendValue(std::string& out, std::string_view utf8) {
  const char* at = utf8.data();
  const char* const end = at + utf8.size();
  while (at != end) {
    appendUtf8(out, orReplacement(decodeUtf8(at, end)));
  }
}

bool isWhiteSpace(std::string_view text) noexcept {
  return text.find_first_not_of(" \t\n\r") == std::string_view::npos;
}

}  // namespace quorvan::embedded
