#include <tools/text/text_beginning.h>

namespace quorvan::tool {

std::string_view textBeginning(std::string_view text, std::size_t most) noexcept {
  if (text.size() <= most) {
    return text;
  }
  const auto isWithinCharacter = [text](std::size_t at) {
    return (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
  };
  while (most > 0 && isWithinCharacter(most)) {
    --most;
  }
  return text.substr(0, most);
}

}  // namespace quorvan::tool
