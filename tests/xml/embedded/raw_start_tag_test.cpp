// Start tags as the parser found them, taken apart; and what is no start tag, which takes no harm.
#include <gtest/gtest.h>

#include <quorvan/xml/embedded/reading/raw_start_tag.h>

namespace quorvan::test {
namespace {

using embedded::RawStartTag;
using embedded::RawValue;

TEST(RawStartTags, GiveTheirValuesInOrder) {
  RawStartTag tag("<a b='1\t\"' c = \"2\r\n'\" d=''>");
  EXPECT_EQ(tag.next().value().keepingSpace("1 \""), "1\t\"");
  EXPECT_EQ(tag.next().value().keepingSpace("2 '"), "2\n'");
  EXPECT_EQ(tag.next().value().keepingSpace(""), "");
  EXPECT_FALSE(tag.next().has_value());
}

TEST(RawStartTags, GiveNothingForAValueWithoutEnd) {
  EXPECT_FALSE(RawStartTag("<a b='1").next().has_value());
  EXPECT_FALSE(RawStartTag("&e;").next().has_value());
  EXPECT_FALSE(RawStartTag("").next().has_value());
}

TEST(RawValues, ComeBackOnlyAsWhatTheParserMadeOfThem) {
  EXPECT_EQ(RawValue("1\t&lt;&#10;").keepingSpace("1 <\n"), "1\t<\n");
  EXPECT_FALSE(RawValue("1\t2").keepingSpace("1  2").has_value());
  EXPECT_FALSE(RawValue("1\t&e;").keepingSpace("1 v").has_value());
  EXPECT_FALSE(RawValue("1\t&lt").keepingSpace("1 &lt").has_value());
}

TEST(RawValues, KnowTheEntitiesThatNeedADeclaration) {
  embedded::EntityGraph entities;
  entities.declareGeneral("whole", "&#65;");
  entities.declareGeneral("broken", "&e;");
  entities.finish();
  EXPECT_TRUE(RawValue("1 &lt;&#233;&#xE9;&whole; 2").isKnown(entities));
  EXPECT_FALSE(RawValue("&lt;&e;").isKnown(entities));
  EXPECT_FALSE(RawValue("&broken;").isKnown(entities));
  EXPECT_FALSE(RawValue("1 &lt").isKnown(entities));
}

}  // namespace
}  // namespace quorvan::test
