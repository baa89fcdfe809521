#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include <tools/text/paragraph.h>
#include <tools/text/table.h>

namespace {

constexpr std::size_t kMostColumns = 78;

std::string paragraph(std::string_view text, std::size_t indent = 0) {
  std::ostringstream out;
  quorvan::tool::printParagraph(out, text, indent);
  return out.str();
}

std::vector<std::string> linesIn(const std::string& text) {
  std::istringstream in(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) {
    lines.push_back(line);
  }
  return lines;
}

TEST(ToolParagraph, IsOneLineWhereItFits) {
  EXPECT_EQ(paragraph("one two three"), "one two three\n");
  EXPECT_EQ(paragraph("one two three", 4), "    one two three\n");
}

TEST(ToolParagraph, PrintsNothingForNoText) {
  EXPECT_EQ(paragraph(""), "");
  EXPECT_EQ(paragraph("", 10), "");
}

TEST(ToolParagraph, BreaksBetweenWords) {
  const std::string word(38, 'w');
  EXPECT_EQ(paragraph(word + ' ' + word + ' ' + word), word + ' ' + word + '\n' + word + '\n');
}

TEST(ToolParagraph, FillsALineToItsLastColumn) {
  const std::string first(38, 'a');
  EXPECT_EQ(linesIn(paragraph(first + ' ' + std::string(39, 'b'))).size(), 1U);
  EXPECT_EQ(linesIn(paragraph(first + ' ' + std::string(40, 'b'))).size(), 2U);
  EXPECT_EQ(linesIn(paragraph(first + ' ' + std::string(39, 'b'), 1)).size(), 2U);
}

TEST(ToolParagraph, LeavesALongWordWhole) {
  const std::string path(200, 'p');
  EXPECT_EQ(paragraph("see " + path + " there"), "see\n" + path + "\nthere\n");
}

TEST(ToolParagraph, CountsCharactersAndNotBytes) {
  std::string text;
  for (int i = 0; i < 26; ++i) {
    text += i == 0 ? "\u00E9\u00E9" : " \u00E9\u00E9";
  }
  // 26 words of two characters and 25 blanks: 77 columns, in 129 bytes.
  EXPECT_EQ(paragraph(text), text + '\n');
}

TEST(ToolParagraph, KeepsEveryWordInItsPlaceAndWithinTheColumns) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    std::vector<std::string> words(1 + random() % 60);
    std::string text;
    for (std::string& word : words) {
      word.assign(1 + random() % 20, static_cast<char>('a' + random() % 26));
      text += (text.empty() ? "" : " ") + word;
    }
    const std::size_t indent = random() % 12;
    std::vector<std::string> found;
    for (const std::string& line : linesIn(paragraph(text, indent))) {
      EXPECT_LE(quorvan::tool::lengthOf(line), kMostColumns);
      EXPECT_EQ(line.find_first_not_of(' '), indent);
      EXPECT_NE(line.back(), ' ');
      std::istringstream in(line);
      for (std::string word; in >> word;) {
        found.push_back(word);
      }
    }
    ASSERT_EQ(found, words);
  }
}

TEST(ToolParagraph, BreaksNoEarlierThanItMust) {
  std::mt19937 random(8);
  for (int round = 0; round < 100; ++round) {
    std::string text = "start";
    for (auto count = random() % 60; count > 0; --count) {
      text += ' ' + std::string(1 + random() % 20, 'x');
    }
    const std::vector<std::string> lines = linesIn(paragraph(text));
    for (std::size_t i = 1; i < lines.size(); ++i) {
      const std::size_t first = std::min(lines[i].find(' '), lines[i].size());
      EXPECT_GT(lines[i - 1].size() + 1 + first, kMostColumns);
    }
  }
}

}  // namespace
