#include <gtest/gtest.h>

#include <sstream>

#include <tools/text/table.h>

namespace {

TEST(ToolTable, AlignsByCharacters) {
  quorvan::tool::Table table;
  table.addColumn("text");
  table.addColumn("n", quorvan::tool::Table::Align::kRight);
  table.addColumn("last");
  table.addRow({"é€", "10", ""});
  table.addRow({"abcdef", "5", "x"});
  std::ostringstream out;
  table.print(out, 1);
  EXPECT_EQ(out.str(), " text     n  last\n é€      10\n abcdef   5  x\n");
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
