#include <tools/text/paragraph.h>

#include <string>

#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

constexpr std::size_t kColumns = 78;

}  // namespace

std::vector<std::string> wordsOf(std::string_view text) {
  std::vector<std::string> words;
  while (!text.empty()) {
    const std::size_t end = text.find(' ');
    words.emplace_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return words;
}

std::string filledLines(const std::vector<std::string>& words, std::size_t columns,
                        std::string_view first, std::string_view next) {
  std::string lines;
  std::string line;
  for (const std::string& word : words) {
    if (line.empty()) {
      line = std::string(first) + word;
    } else if (lengthOf(line) + 1 + lengthOf(word) > columns) {
      lines += line + '\n';
      line = std::string(next) + word;
    } else {
      line += ' ' + word;
    }
  }
  return line.empty() ? lines : lines + line + '\n';
}

void printParagraph(std::ostream& out, std::string_view text, std::size_t indent) {
  const std::string blanks(indent, ' ');
  out << filledLines(wordsOf(text), kColumns, blanks, blanks);
}

}  // namespace quorvan::tool
