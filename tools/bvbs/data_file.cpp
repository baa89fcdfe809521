#include <tools/bvbs/data_file.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include <tools/console/terminal.h>
#include <tools/files/source_text.h>

namespace quorvan::tool::bvbs {

bool isBendingDataName(std::string_view name) {
  constexpr std::string_view kEnding = ".abs";
  if (name.size() < kEnding.size()) {
    return false;
  }
  return std::ranges::equal(name.substr(name.size() - kEnding.size()), kEnding, {}, [](char one) {
    return one >= 'A' && one <= 'Z' ? static_cast<char>(one + ('a' - 'A')) : one;
  });
}

std::string bendingDataBytes(const std::string& name) {
  std::ifstream in(toPath(name), std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (!in.is_open() || in.bad()) {
    throw Unreadable(name, "cannot be read");
  }
  return bytes;
}

std::vector<DataLine> linesOf(std::string_view bytes) {
  std::vector<DataLine> lines;
  std::uint32_t number = 0;
  while (!bytes.empty()) {
    ++number;
    const std::size_t end = bytes.find('\n');
    std::string_view text = bytes.substr(0, end);
    const bool isLast = end == std::string_view::npos;
    const bool hasReturn = text.ends_with('\r');
    if (hasReturn) {
      text.remove_suffix(1);
    }
    if (!text.empty()) {
      lines.push_back({number, text, hasReturn || isLast});
    }
    bytes.remove_prefix(isLast ? bytes.size() : end + 1);
  }
  return lines;
}

}  // namespace quorvan::tool::bvbs
