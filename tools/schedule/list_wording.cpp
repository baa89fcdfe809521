#include <tools/schedule/list_wording.h>

namespace quorvan::tool {

std::string filled(std::string_view text, std::initializer_list<std::string_view> values) {
  constexpr std::size_t kPlaceLength = 3;  // {0}
  std::string result;
  while (!text.empty()) {
    const std::size_t at = text.find('{');
    result += text.substr(0, at);
    if (at == std::string_view::npos) {
      break;
    }
    const auto place = static_cast<std::size_t>(text[at + 1] - '0');
    result += values.begin()[place];
    text.remove_prefix(at + kPlaceLength);
  }
  return result;
}

std::string reasonText(const ListWording& words, const LeftOut& one) {
  return filled(words.reasons[static_cast<std::size_t>(one.reason)], {one.item});
}

}  // namespace quorvan::tool
