#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include <tools/text/table.h>

namespace {

using quorvan::tool::lengthOf;
using quorvan::tool::printable;
using quorvan::tool::Table;

std::string printed(const Table& table, std::size_t indent = 0) {
  std::ostringstream out;
  table.print(out, indent);
  return out.str();
}

TEST(ToolTable, AlignsByCharacters) {
  Table table;
  table.addColumn("text");
  table.addColumn("n", Table::Align::kRight);
  table.addColumn("last");
  table.addRow({"é€", "10", ""});
  table.addRow({"abcdef", "5", "x"});
  EXPECT_EQ(printed(table, 1), " text     n  last\n é€      10\n abcdef   5  x\n");
}

TEST(ToolTable, IsEmptyUntilItHasARow) {
  Table table;
  EXPECT_TRUE(table.empty());
  table.addColumn("a");
  EXPECT_TRUE(table.empty());
  EXPECT_EQ(printed(table), "a\n");
  table.addRow({"x"});
  EXPECT_FALSE(table.empty());
}

TEST(ToolTable, IsAsWideAsItsWidestTitleOrCell) {
  Table table;
  table.addColumn("long title");
  table.addColumn("b");
  table.addRow({"x", "y"});
  table.addRow({"x", "a long cell"});
  EXPECT_EQ(printed(table), "long title  b\nx           y\nx           a long cell\n");
}

TEST(ToolTable, EndsRightAlignedColumnsTogether) {
  Table table;
  table.addColumn("n", Table::Align::kRight);
  table.addRow({"1"});
  table.addRow({"1000"});
  table.addRow({""});
  EXPECT_EQ(printed(table), "   n\n   1\n1000\n\n");
}

TEST(ToolTable, KeepsACellOnItsLine) {
  Table table;
  table.addColumn("a");
  table.addColumn("b");
  table.addRow({"one\ntwo", "x\ty"});
  EXPECT_EQ(printed(table), "a         b\none\\ntwo  x\\ty\n");
}

TEST(ToolTable, PrintsTheSameEachTime) {
  Table table;
  table.addColumn("a");
  table.addRow({"x"});
  EXPECT_EQ(printed(table), printed(table));
}

TEST(ToolTable, BeginsEachCellOfAColumnAtTheSameCharacter) {
  std::mt19937 random(9);
  for (int round = 0; round < 100; ++round) {
    Table table;
    for (const char* const title : {"first", "s", "last"}) {
      table.addColumn(title);
    }
    const std::size_t rows = 1 + random() % 8;
    for (std::size_t row = 0; row < rows; ++row) {
      std::string wide;
      for (auto count = random() % 9; count > 0; --count) {
        wide += "\u00E9";
      }
      table.addRow({wide + "|", "|" + std::string(random() % 9, 'x') + "|", "|"});
    }
    std::istringstream in(printed(table));
    std::string line;
    std::getline(in, line);
    const std::size_t second = line.find("s  ", 6);
    const std::size_t last = line.find("last");
    while (std::getline(in, line)) {
      const std::size_t bar = line.find('|', line.find('|') + 1);
      EXPECT_EQ(lengthOf(std::string_view(line).substr(0, bar)), second) << line;
      EXPECT_EQ(lengthOf(line), last + 1) << line;
    }
  }
}

TEST(ToolPrintable, LeavesTextOfAnyScriptAsItIs) {
  for (const char* const text : {"", "plain, text; 'quoted' \"twice\" \\", "\u00E9\u20AC\u00A0",
                                 "\u05D0\u0628", "\u4E2D", "\U0001F600", "e\u0301", "\u200D"}) {
    EXPECT_EQ(printable(text), text);
  }
}

TEST(ToolPrintable, WritesOutEveryControlCharacter) {
  EXPECT_EQ(printable("a\nb\tc\rd"), R"(a\nb\tc\rd)");
  for (char32_t character = 0; character < 0x100; ++character) {
    const bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
    std::string text;
    if (character < 0x80) {
      text += static_cast<char>(character);
    } else {
      text += static_cast<char>(0xC0 | (character >> 6));
      text += static_cast<char>(0x80 | (character & 0x3F));
    }
    EXPECT_EQ(printable(text) != text, isControl) << static_cast<unsigned>(character);
    EXPECT_EQ(printable(text).front() == '\\', isControl || character == '\\');
  }
  EXPECT_EQ(printable("\x1B[31m"), R"(\u001b[31m)");
  EXPECT_EQ(printable(std::string_view("\0", 1)), R"(\u0000)");
  EXPECT_EQ(printable("\x7F"), R"(\u007f)");
  EXPECT_EQ(printable("\u009B"), R"(\u009b)");
}

TEST(ToolPrintable, WritesOutWhatTurnsTheTextAroundIt) {
  for (const auto& [text, shown] : {std::pair{"\u202A", R"(\u202a)"},
                                    {"\u202E", R"(\u202e)"},
                                    {"\u2066", R"(\u2066)"},
                                    {"\u2069", R"(\u2069)"},
                                    {"\u2028", R"(\u2028)"},
                                    {"\u2029", R"(\u2029)"},
                                    {"\u200F", R"(\u200f)"}}) {
    EXPECT_EQ(printable(text), shown);
  }
  EXPECT_EQ(printable("\u202F"), "\u202F");
  EXPECT_EQ(printable("\u2065"), "\u2065");
}

TEST(ToolPrintable, ReplacesWhatIsNoCharacter) {
  EXPECT_EQ(printable("a\xFF"), "a\uFFFD");
  EXPECT_EQ(printable("\xC3"), "\uFFFD");
  EXPECT_EQ(printable("\xC3x"), "\uFFFDx");
}

TEST(ToolPrintable, ChangesNothingThatIsPrintable) {
  std::mt19937 random(10);
  for (int round = 0; round < 500; ++round) {
    std::string text;
    for (auto count = random() % 12; count > 0; --count) {
      text += static_cast<char>(random());
    }
    const std::string once = printable(text);
    EXPECT_EQ(printable(once), once);
  }
}

TEST(ToolLength, IsThatOfCharacters) {
  EXPECT_EQ(lengthOf(""), 0U);
  EXPECT_EQ(lengthOf("abc"), 3U);
  EXPECT_EQ(lengthOf("\u00E9\u20AC\U0001F600"), 3U);
}

// What one long cell costs is its own length.
TEST(ToolTable, PadsNoRowForTheLongestCell) {
  quorvan::tool::Table table;
  table.addColumn("text");
  table.addColumn("last");
  table.addRow({std::string(100000, 'x'), "1"});
  for (int i = 0; i < 100; ++i) {
    table.addRow({"y", "2"});
  }
  std::ostringstream out;
  table.print(out);
  EXPECT_LT(out.str().size(), 120000U);
  EXPECT_NE(out.str().find("\ny" + std::string(61, ' ') + "2\n"), std::string::npos);
}

TEST(ToolText, IsPrintedWithoutWhatSteersATerminal) {
  EXPECT_EQ(quorvan::tool::printable("a\x1B[2J\u009B\u202E\u200F\u2028\u061C\x7F\xFF"),
            "a\\u001b[2J\\u009b\\u202e\\u200f\\u2028\\u061c\\u007f\uFFFD");
}

}  // namespace
