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

WideValue::WideValue(std::wstring_view wide) {
  char* begin = m_short.data();
  if (wide.size() > kShort) {
    m_long.resize(wide.size() * kMaxUtf8);
    begin = m_long.data();
  }
  // As if it were ASCII, which it nearly always is.
  char32_t all = 0;
  for (std::size_t i = 0; i < wide.size(); ++i) {
    all |= static_cast<char32_t>(wide[i]);
    begin[i] = static_cast<char>(wide[i]);
  }
  m_value = {{begin, wide.size()}, all < 0x80 && isPlain({begin, wide.size()})};
  if (m_value.plain) {
    return;
  }
  char* to = begin;
  const wchar_t* at = wide.data();
  for (const wchar_t* const end = at + wide.size(); at != end;) {
    to = putUtf8(to, orReplacement(decodeWide(at, end)));
  }
  m_value.text = {begin, static_cast<std::size_t>(to - begin)};
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
