#include <quorvan/xml/character_rules.h>

#include <quorvan/text/utf8.h>

namespace quorvan::dom {

namespace {

// The end of the longest part of [at, end) that XML can carry. A lone surrogate decodes as U+FFFD,
// which XML can carry, so what was decoded from it does not tell.
const wchar_t* endOfXmlText(const wchar_t* at, const wchar_t* end) noexcept {
  while (at != end) {
    const wchar_t* const start = at;
    const char32_t code = decodeWide(at, end);
    const bool replaced =
        code == kReplacementCharacter && static_cast<char32_t>(*start) != kReplacementCharacter;
    if (replaced || !isXmlCharacter(code)) {
      return start;
    }
  }
  return end;
}

}  // namespace

bool isXmlText(std::wstring_view text) noexcept {
  const wchar_t* const end = text.data() + text.size();
  return endOfXmlText(text.data(), end) == end;
}

std::wstring toXmlText(std::wstring_view text) {
  std::wstring result;
  result.reserve(text.size());
  const wchar_t* at = text.data();
  const wchar_t* const end = at + text.size();
  while (at != end) {
    const wchar_t* const stop = endOfXmlText(at, end);
    result.append(at, stop);
    if (stop == end) {
      break;
    }
    at = stop;
    decodeWide(at, end);
    result.push_back(static_cast<wchar_t>(kReplacementCharacter));
  }
  return result;
}

}  // namespace quorvan::dom
