#include <gtest/gtest.h>

#include <limits>
#include <string>

#include <quorvan/text/cstring.h>
#include <quorvan/xml/name.h>

namespace {

using quorvan::dom::Name;
using quorvan::dom::NameText;

TEST(DomName, ComparesByText) {
  const std::string built = std::string("Radi") + "us";
  EXPECT_TRUE(Name("Radius") == Name(std::string_view(built)));
  EXPECT_FALSE(Name("Radius") == Name("radius"));
  EXPECT_FALSE(Name(std::string_view("a"), 1) == Name(std::string_view("b"), 1));
}

TEST(DomName, HashesToTheStandardValues) {
  EXPECT_EQ(Name("").hash(), 0x811C9DC5U);
  EXPECT_EQ(Name("a").hash(), 0xE40C292CU);
  EXPECT_EQ(Name("foobar").hash(), 0xBF9CF968U);
}

TEST(NameText, TakesWideTextAsUtf8) {
  const NameText text(CString(L"\u00C9l\u00E9ment"));
  EXPECT_EQ(text.name().text(), "\xC3\x89l\xC3\xA9ment");
  EXPECT_TRUE(text.name() == Name("\xC3\x89l\xC3\xA9ment"));
}

TEST(NameText, PutsANumberBehindAStem) {
  EXPECT_EQ(NameText("Point", 12).name().text(), "Point12");
  EXPECT_EQ(NameText("Point", -3).name().text(), "Point-3");
  EXPECT_EQ(NameText("Point", std::numeric_limits<std::int64_t>::min()).name().text(),
            "Point-9223372036854775808");
  EXPECT_TRUE(NameText("Point", 0).name() == Name("Point0"));
}

}  // namespace
