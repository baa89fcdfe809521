#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <sstream>

#include <tools/text/json_text.h>

namespace {

using quorvan::tool::indentedJson;
using quorvan::tool::inlineJson;
using quorvan::tool::Json;

// A value of any kind, nested up to that depth.
Json randomJson(std::mt19937& random, int depth) {
  const auto kind = random() % (depth > 0 ? 8 : 6);
  Json value;
  switch (kind) {
    case 0:
      return nullptr;
    case 1:
      return random() % 2 == 0;
    case 2:
      return static_cast<std::int64_t>(random()) - 2147483648;
    case 3:
      return static_cast<double>(random()) / 1024.0 - 1e6;
    case 4:
      return "\u00E9 \"quoted\" \\ \n\t\u0001 \u05D0\U0001F600";
    case 5:
      return std::ldexp(1.0, static_cast<int>(random() % 2000) - 1000);
    case 6:
      value = Json::array();
      for (auto count = random() % 5; count > 0; --count) {
        value.push_back(randomJson(random, depth - 1));
      }
      return value;
    default:
      value = Json::object();
      for (auto count = random() % 5; count > 0; --count) {
        value["key " + std::to_string(random() % 100)] = randomJson(random, depth - 1);
      }
      return value;
  }
}

TEST(ToolJson, IsLaidOutForPeople) {
  EXPECT_EQ(inlineJson(Json::parse(R"({"a":[1.0,-0.0,0.5],"b":"x\"y"})")),
            R"({"a": [1, -0.0, 0.5], "b": "x\"y"})");
  EXPECT_EQ(
      indentedJson(Json::parse(R"({"a":[{"b":1},{"b":2}],"c":[1,2],"d":[]})")),
      "{\n  \"a\": [\n    {\"b\": 1},\n    {\"b\": 2}\n  ],\n  \"c\": [1, 2],\n  \"d\": []\n}\n");
}

TEST(ToolJson, IsTheSameWrittenValueByValue) {
  std::mt19937 random(8);
  for (int round = 0; round < 200; ++round) {
    Json whole = Json::object();
    std::ostringstream out;
    quorvan::tool::JsonStream stream(out);
    for (int i = 0; i < 4; ++i) {
      const std::string key = "key \"" + std::to_string(i);
      if (i % 2 == 0) {
        whole[key] = randomJson(random, 3);
        stream.add(key, whole[key]);
        continue;
      }
      whole[key] = Json::array();
      stream.beginList(key);
      for (auto entries = random() % 4; entries > 0; --entries) {
        const Json entry = {{"value", randomJson(random, 2)}, {"other", 1}};
        whole[key].push_back(entry);
        stream.addEntry(entry);
      }
      stream.endList();
    }
    whole["last"] = Json::array({Json::object()});
    stream.add("last", whole["last"]);
    stream.end();
    ASSERT_EQ(out.str(), indentedJson(whole));
  }
}

TEST(ToolJson, WritesPlainValuesAsTheyAre) {
  EXPECT_EQ(inlineJson(nullptr), "null");
  EXPECT_EQ(inlineJson(true), "true");
  EXPECT_EQ(inlineJson(false), "false");
  EXPECT_EQ(inlineJson(""), "\"\"");
  EXPECT_EQ(inlineJson(Json::array()), "[]");
  EXPECT_EQ(inlineJson(Json::object()), "{}");
  EXPECT_EQ(inlineJson(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
  EXPECT_EQ(inlineJson(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
}

TEST(ToolJson, WritesNumbersAsShortAsTheyGo) {
  EXPECT_EQ(inlineJson(12.5), "12.5");
  EXPECT_EQ(inlineJson(1250.0), "1250");
  EXPECT_EQ(inlineJson(0.1), "0.1");
  EXPECT_EQ(inlineJson(0.0), "0");
  EXPECT_EQ(Json::parse(inlineJson(1e300)).get<double>(), 1e300);
  EXPECT_EQ(Json::parse(inlineJson(5e-324)).get<double>(), 5e-324);
}

TEST(ToolJson, KeepsTheSignOfZero) {
  EXPECT_TRUE(std::signbit(Json::parse(inlineJson(-0.0)).get<double>()));
}

TEST(ToolJson, EscapesWhatTheFormatWantsEscaped) {
  EXPECT_EQ(inlineJson("a\"b\\c\n\t\r\u0001"), R"("a\"b\\c\n\t\r\u0001")");
  EXPECT_EQ(inlineJson(Json{{"a\"b", 1}}), R"({"a\"b": 1})");
  EXPECT_EQ(inlineJson("\u00E9\u05D0\U0001F600"), "\"\u00E9\u05D0\U0001F600\"");
}

TEST(ToolJson, KeepsTheOrderOfMembers) {
  EXPECT_EQ(inlineJson(Json{{"z", 1}, {"a", 2}, {"m", 3}}), R"({"z": 1, "a": 2, "m": 3})");
}

TEST(ToolJson, PutsEveryMemberOfALongObjectOnALineOfItsOwn) {
  const std::string name(60, 'n');
  const Json longObject = {{name, 1}, {"other", std::string(40, 'x')}};
  EXPECT_EQ(indentedJson(longObject),
            "{\n  \"" + name + "\": 1,\n  \"other\": \"" + std::string(40, 'x') + "\"\n}\n");
}

TEST(ToolJson, LeavesALongListOfPlainValuesOnOneLine) {
  const std::string text = indentedJson(Json(std::vector<int>(500, 12345)));
  EXPECT_EQ(text.find('\n'), text.size() - 1);
}

TEST(ToolJson, EndsWithOneLineEnd) {
  for (const Json& value : {Json(), Json(1), Json::array(), Json{{"a", {{"b", 1}}}}}) {
    const std::string text = indentedJson(value);
    EXPECT_TRUE(text.ends_with('\n')) << text;
    EXPECT_FALSE(text.ends_with("\n\n")) << text;
  }
}

TEST(ToolJson, HasNoBlanksAtTheEndsOfLines) {
  std::mt19937 random(2);
  for (int round = 0; round < 200; ++round) {
    EXPECT_EQ(indentedJson(randomJson(random, 4)).find(" \n"), std::string::npos);
  }
}

TEST(ToolJson, ReadsBackAsWhatWasWrittenInEitherForm) {
  std::mt19937 random(3);
  for (int round = 0; round < 500; ++round) {
    const Json value = randomJson(random, 4);
    ASSERT_EQ(Json::parse(inlineJson(value)), value);
    ASSERT_EQ(Json::parse(indentedJson(value)), value);
    EXPECT_EQ(inlineJson(value).find('\n'), std::string::npos);
  }
}

TEST(ToolJson, HasTheTextOfWhatHasNoDigits) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(
      inlineJson(Json::array({kInfinity, -kInfinity, std::numeric_limits<double>::quiet_NaN()})),
      R"(["inf", "-inf", "nan"])");
}

TEST(ToolJson, WritesOutWhatSteersATerminal) {
  EXPECT_EQ(inlineJson("\x1B \u009B \u202E \u00E9 \xE9"),
            "\"\\u001b \\u009b \\u202e \u00E9 \uFFFD\"");
}

}  // namespace
