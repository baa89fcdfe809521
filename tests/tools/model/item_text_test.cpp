#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>

#include <tools/model/item_text.h>

namespace {

using quorvan::tool::entryNumber;
using quorvan::tool::exactLong;
using quorvan::tool::flagOf;
using quorvan::tool::isDecimalNumber;
using quorvan::tool::isWholeNumber;

TEST(ToolItemText, KnowsNumbersFromOtherTexts) {
  for (const char* const text : {"1", "-1.5", "+.5", "5.", "1e5", "1.5E-3", "0", "-0.0000000",
                                 "00012", "1e+5", "1234567890123456789012345678901234567890"}) {
    EXPECT_TRUE(isDecimalNumber(text)) << text;
  }
  for (const char* const text : {"",    "-",   ".",      "1,5", "1.5 ", " 1",    "1e",     "1e1.5",
                                 "0x1", "inf", "nan",    "--1", "+-1",  "1.2.3", "e5",     ".e5",
                                 "1d5", "1 2", "\u0661", "1\n", "1e+",  "-.",    "\u22121"}) {
    EXPECT_FALSE(isDecimalNumber(text)) << text;
  }
}

TEST(ToolItemText, KnowsWholeNumbersOfAnySize) {
  for (const char* const text : {"0", "-0", "+0", "007", "-12", "99999999999999999999999999"}) {
    EXPECT_TRUE(isWholeNumber(text)) << text;
  }
  for (const char* const text :
       {"", "+", "-", "1.0", "1.", "1e1", " 1", "1 ", "--1", "1-", "\u0661"}) {
    EXPECT_FALSE(isWholeNumber(text)) << text;
  }
}

TEST(ToolItemText, ReadsLongsToTheEndsOfTheirRange) {
  EXPECT_EQ(exactLong("-2147483648"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(exactLong("2147483647"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(exactLong("+7"), 7);
  EXPECT_EQ(exactLong("-0"), 0);
  EXPECT_EQ(exactLong("0000000000000000007"), 7);
  for (const char* const text : {"", "2147483648", "-2147483649", "1.0", "7 ", " 7", "0x7", "+",
                                 "-", "+-7", "-+7", "--7", "1e3", "99999999999999999999"}) {
    EXPECT_FALSE(exactLong(text)) << text;
  }
}

TEST(ToolItemText, ReadsBackEveryLong) {
  std::mt19937 random(13);
  for (int round = 0; round < 5000; ++round) {
    const auto value = static_cast<std::int32_t>(random());
    const std::string text = std::to_string(value);
    ASSERT_EQ(exactLong(text), value);
    ASSERT_TRUE(isWholeNumber(text) && isDecimalNumber(text)) << text;
  }
}

TEST(ToolItemText, ReadsFlagsInAnyCase) {
  for (const char* const text : {"True", "true", "TRUE", "tRuE"}) {
    EXPECT_EQ(flagOf(text), true) << text;
  }
  for (const char* const text : {"False", "false", "FALSE"}) {
    EXPECT_EQ(flagOf(text), false) << text;
  }
  for (const char* const text :
       {"", "1", "0", "yes", "Vrai", "True ", " True", "Tru", "Truee", "-1"}) {
    EXPECT_FALSE(flagOf(text).has_value()) << text;
  }
}

TEST(ToolItemText, ReadsTheNumbersOfEntries) {
  EXPECT_EQ(entryNumber("Point12", "Point"), 12U);
  EXPECT_EQ(entryNumber("Point4294967295", "Point"), 4294967295U);
  for (const char* const name :
       {"Point", "Point0", "Point01", "Point1x", "Pin1", "Point99999999999", "Point4294967296",
        "Point-1", "Point+1", "Point 1", "point1", "xPoint1", "Points1", ""}) {
    EXPECT_FALSE(entryNumber(name, "Point")) << name;
  }
}

}  // namespace
