#include <gtest/gtest.h>

#include <limits>

#include <tools/text/json_text.h>

namespace {

using quorvan::tool::Json;

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

}  // namespace
