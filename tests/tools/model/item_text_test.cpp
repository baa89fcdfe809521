#include <gtest/gtest.h>

#include <limits>

#include <tools/model/item_text.h>

namespace {

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

}  // namespace
