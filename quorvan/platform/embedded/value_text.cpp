#include <quorvan/platform/embedded/value_text.h>

#include <algorithm>

#include <quorvan/platform/utf8.h>
#include <quorvan/platform/xml_text.h>

namespace quorvan::embedded {

namespace {

constexpr bool isPlainUnit(char32_t unit) noexcept {
  return unit >= 0x20 && unit < 0x80 && unit != '"' && unit != '&' && unit != '<' && unit != '>';
}

char32_t orReplacement(char32_t character) noexcept {
  return platform::isXmlCharacter(character) ? character : kReplacementCharacter;
}

}  // namespace

bool isPlain(std::string_view text) noexcept {
  const char* at = text.data();
  const char* const end = at + text.size();
  for (; end - at >= 8; at += 8) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, at, sizeof bytes);
    if (markNotPlain(bytes) != 0)
      return false;
  }
  return std::all_of(at, end,
                     [](char unit) { return isPlainUnit(static_cast<unsigned char>(unit)); });
}

bool appendValue(std::string& out, std::wstring_view wide) {
  const wchar_t* at = wide.data();
  const wchar_t* const end = at + wide.size();
  const wchar_t* const firstOther = std::find_if_not(
      at, end, [](wchar_t unit) { return isPlainUnit(static_cast<char32_t>(unit)); });
  const std::size_t before = out.size();
  out.resize(before + static_cast<std::size_t>(firstOther - at));
  std::transform(at, firstOther, out.data() + before,
                 [](wchar_t unit) { return static_cast<char>(unit); });
  for (at = firstOther; at != end;)
    appendUtf8(out, orReplacement(decodeWide(at, end)));
  return firstOther == end;
}

void appendValue(std::string& out, std::string_view utf8) {
  const char* at = utf8.data();
  const char* const end = at + utf8.size();
  while (at != end)
    appendUtf8(out, orReplacement(decodeUtf8(at, end)));
}

bool isWhiteSpace(std::string_view text) noexcept {
  return text.find_first_not_of(" \t\n\r") == std::string_view::npos;
}

}  // namespace quorvan::embedded
