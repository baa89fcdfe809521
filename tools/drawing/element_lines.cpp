#include <tools/drawing/element_lines.h>

#include <algorithm>

namespace quorvan::tool {

namespace {

constexpr std::size_t kElementsDepth = 2;

}  // namespace

std::size_t endOfString(std::string_view json, std::size_t at) {
  for (++at; at < json.size() && json[at] != '"'; ++at) {
    if (json[at] == '\\') {
      ++at;
    }
  }
  return std::min(at + 1, json.size());
}

std::size_t lineOfElement(std::string_view json, std::size_t place) {
  constexpr std::string_view kBlanks = " \t\r\n";
  constexpr std::string_view kBehindWords = ",:]} \t\r\n";  // and numbers
  std::size_t depth = 0;
  std::size_t entry = 0;
  bool isInElements = false;
  std::string_view key;
  for (std::size_t at = json.find_first_not_of(kBlanks); at < json.size();
       at = json.find_first_not_of(kBlanks, at)) {
    const char unit = json[at];
    if (isInElements && depth == kElementsDepth && unit != ',' && unit != ']' && entry++ == place) {
      return 1 + static_cast<std::size_t>(std::count(
                     json.begin(), json.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
    }
    if (unit == '"') {
      const std::size_t end = endOfString(json, at);
      if (depth == 1) {
        key = json.substr(at, end - at);
      }
      at = end;
      continue;
    }
    if (unit == '{' || unit == '[') {
      isInElements = ++depth == kElementsDepth ? key == "\"elements\"" : isInElements;
    } else if (unit == '}' || unit == ']') {
      --depth;
    } else if (unit != ',' && unit != ':') {
      at = json.find_first_of(kBehindWords, at);
      continue;
    }
    ++at;
  }
  return 0;
}

}  // namespace quorvan::tool
