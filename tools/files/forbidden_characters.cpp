#include <tools/files/forbidden_characters.h>

#include <charconv>
#include <string_view>

namespace quorvan::tool {

namespace {

constexpr std::string_view kReplacement = "&#65533;";

bool isForbidden(std::uint64_t character) {
  if (character < 0x20) {
    return character != '\t' && character != '\n' && character != '\r';
  }
  return (character >= 0xD800 && character <= 0xDFFF) || character == 0xFFFE ||
         character == 0xFFFF || character > 0x10FFFF;
}

// U+FFFE, U+FFFF and the surrogates, which UTF-16 can hold alone.
bool isForbiddenSequence(std::string_view text) {
  return text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF") ||
         (text.size() > 2 && text[0] == '\xED' && static_cast<unsigned char>(text[1]) >= 0xA0);
}

// Length of the forbidden character that the text begins with; 0 for any other beginning.
std::size_t forbiddenLength(std::string_view text, bool isSingleByte) {
  const auto first = static_cast<unsigned char>(text.front());
  if (first < 0x20) {
    return isForbidden(first) ? 1 : 0;
  }
  if (!isSingleByte && isForbiddenSequence(text)) {
    return 3;
  }
  if (!text.starts_with("&#")) {
    return 0;
  }
  const bool isHexadecimal = text.starts_with("&#x");
  const char* const digits = text.data() + (isHexadecimal ? 3 : 2);
  const char* const textEnd = text.data() + text.size();
  std::uint64_t character = 0;
  const auto [end, error] = std::from_chars(digits, textEnd, character, isHexadecimal ? 16 : 10);
  if (end == digits || end == textEnd || *end != ';') {
    return 0;
  }
  if (error == std::errc() && !isForbidden(character)) {
    return 0;
  }
  return static_cast<std::size_t>(end - text.data()) + 1;
}

}  // namespace

CleanedText withoutForbiddenCharacters(std::string_view text, bool isSingleByte) {
  CleanedText cleaned;
  Position position{1, 1};
  std::size_t counted = 0;  // to where the position is moved
  std::size_t copied = 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = forbiddenLength(text.substr(at), isSingleByte);
    if (length == 0) {
      ++at;
      continue;
    }
    movePosition(position, text, counted, at, isSingleByte);
    counted = at;
    cleaned.places.push_back(position);
    cleaned.text.append(text.substr(copied, at - copied)).append(kReplacement);
    at += length;
    copied = at;
  }
  cleaned.text.append(text.substr(copied));
  return cleaned;
}

}  // namespace quorvan::tool
