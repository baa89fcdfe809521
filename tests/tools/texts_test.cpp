#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include <tools/drawing/element_lines.h>
#include <tools/model/item_text.h>
#include <tools/model/repartition.h>
#include <tools/text/json_text.h>
#include <tools/text/number_text.h>
#include <tools/text/table.h>

namespace {

using quorvan::tool::Json;

TEST(ToolNumbers, AreRoundedWithoutLocaleAndWithoutNegativeZero) {
  EXPECT_EQ(quorvan::tool::fixed(12.345, 2), "12.35");
  EXPECT_EQ(quorvan::tool::fixed(-0.001, 2), "0.00");
  EXPECT_EQ(quorvan::tool::rounded(1250.0, 3), "1250");
  EXPECT_EQ(quorvan::tool::rounded(12.5, 3), "12.5");
  EXPECT_EQ(quorvan::tool::rounded(-0.0001, 3), "0");
  EXPECT_EQ(quorvan::tool::rounded(100.0, 0), "100");
  EXPECT_EQ(quorvan::tool::fixed(std::numeric_limits<double>::max(), 7).size(), 317U);
}

TEST(ToolJson, IsLaidOutForPeople) {
  EXPECT_EQ(quorvan::tool::inlineJson(Json::parse(R"({"a":[1.0,-0.0,0.5],"b":"x\"y"})")),
            R"({"a": [1, -0.0, 0.5], "b": "x\"y"})");
  EXPECT_EQ(
      quorvan::tool::indentedJson(Json::parse(R"({"a":[{"b":1},{"b":2}],"c":[1,2],"d":[]})")),
      "{\n  \"a\": [\n    {\"b\": 1},\n    {\"b\": 2}\n  ],\n  \"c\": [1, 2],\n  \"d\": []\n}\n");
}

TEST(ToolJson, HasNullForWhatIsNoNumber) {
  EXPECT_EQ(quorvan::tool::inlineJson(std::numeric_limits<double>::infinity()), "null");
}

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

TEST(ToolItemText, KnowsNumbersFromOtherTexts) {
  for (const char* const text : {"1", "-1.5", "+.5", "5.", "1e5", "1.5E-3"}) {
    EXPECT_TRUE(quorvan::tool::isDecimalNumber(text)) << text;
  }
  for (const char* const text : {"", "-", ".", "1,5", "1.5 ", " 1", "1e", "1e1.5", "0x1", "inf"}) {
    EXPECT_FALSE(quorvan::tool::isDecimalNumber(text)) << text;
  }
  EXPECT_EQ(quorvan::tool::exactLong("-2147483648"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(quorvan::tool::exactLong("+7"), 7);
  for (const char* const text : {"", "2147483648", "1.0", "7 ", "0x7"}) {
    EXPECT_FALSE(quorvan::tool::exactLong(text)) << text;
  }
}

TEST(ToolItemText, ReadsTheNumbersOfEntries) {
  EXPECT_EQ(quorvan::tool::entryNumber("Point12", "Point"), 12U);
  for (const char* const name :
       {"Point", "Point0", "Point01", "Point1x", "Pin1", "Point99999999999"}) {
    EXPECT_FALSE(quorvan::tool::entryNumber(name, "Point")) << name;
  }
}

TEST(ToolSpacing, IsToldInRuns) {
  EXPECT_EQ(quorvan::tool::spacingText({}), "");
  EXPECT_EQ(quorvan::tool::spacingText({200, 200, 200}), "200");
  EXPECT_EQ(quorvan::tool::spacingText({100, 200, 200, 150.5}), "100, 2 x 200, 150.5");
  EXPECT_EQ(quorvan::tool::spacingText({1, 2, 3, 4, 5, 6, 7}), "1, 2, 3, 4, 5, 6, ...");
}

TEST(ToolElementLines, FindElementsByTheirPlace) {
  const std::string input =
      "{\"drawing\": {\"name\": \"\\\"elements\\\": [{\"},\n\"elements\":\n[{\"a\": "
      "[1,\n{}]},\n\n{}]}";
  EXPECT_EQ(quorvan::tool::lineOfElement(input, 0), 3U);
  EXPECT_EQ(quorvan::tool::lineOfElement(input, 1), 6U);
  EXPECT_EQ(quorvan::tool::lineOfElement(input, 2), 0U);
}

}  // namespace
