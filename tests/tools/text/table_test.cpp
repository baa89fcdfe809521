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

}  // namespace
