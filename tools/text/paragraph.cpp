#include <tools/text/paragraph.h>

#include <string>

#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

constexpr std::size_t kColumns = 78;

}  // namespace

void printParagraph(std::ostream& out, std::string_view text, std::size_t indent) {
  std::string line;
  while (!text.empty()) {
    const std::size_t end = text.find(' ');
    const std::string_view word = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (!line.empty() && indent + lengthOf(line) + 1 + lengthOf(word) > kColumns) {
      out << std::string(indent, ' ') << line << '\n';
      line.clear();
    }
    line += (line.empty() ? "" : " ") + std::string(word);
  }
  if (!line.empty()) {
    out << std::string(indent, ' ') << line << '\n';
  }
}

}  // namespace quorvan::tool
