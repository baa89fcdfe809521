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

TEST(ToolJson, HasTheTextOfWhatHasNoDigits) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(quorvan::tool::inlineJson(
                Json::array({kInfinity, -kInfinity, std::numeric_limits<double>::quiet_NaN()})),
            R"(["inf", "-inf", "nan"])");
}

TEST(ToolJson, WritesOutWhatSteersATerminal) {
  EXPECT_EQ(quorvan::tool::inlineJson("\x1B \u009B \u202E \u00E9 \xE9"),
            "\"\\u001b \\u009b \\u202e \u00E9 \uFFFD\"");
}

}  // namespace
