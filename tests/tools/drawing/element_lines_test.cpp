#include <gtest/gtest.h>

#include <tools/drawing/element_lines.h>

namespace {

TEST(ToolElementLines, FindElementsByTheirPlace) {
  const std::string input =
      "{\"drawing\": {\"name\": \"\\\"elements\\\": [{\"},\n\"elements\":\n[{\"a\": "
      "[1,\n{}]},\n\n{}]}";
  EXPECT_EQ(quorvan::tool::lineOfElement(input, 0), 3U);
  EXPECT_EQ(quorvan::tool::lineOfElement(input, 1), 6U);
  EXPECT_EQ(quorvan::tool::lineOfElement(input, 2), 0U);
}

}  // namespace
