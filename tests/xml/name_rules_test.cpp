#include <gtest/gtest.h>

#include <quorvan/xml/name_rules.h>

namespace quorvan::dom {
namespace {

TEST(XmlNames, LetterOrUnderscoreBegins) {
  EXPECT_TRUE(isXmlName("CKtZantoLine"));
  EXPECT_TRUE(isXmlName("_a"));
  EXPECT_TRUE(isXmlName("\xC3\x89tage"));              // É
  EXPECT_TRUE(isXmlName("\xE9\x89\x84\xE7\xAD\x8B"));  // ideographs
}

TEST(XmlNames, DigitsHyphensAndPeriodsFollow) {
  EXPECT_TRUE(isXmlName("Point12"));
  EXPECT_TRUE(isXmlName("a-b.c_d"));
  EXPECT_TRUE(isXmlName("a\xC2\xB7"));  // middle dot
  EXPECT_FALSE(isXmlName("1a"));
  EXPECT_FALSE(isXmlName("-a"));
  EXPECT_FALSE(isXmlName(".a"));
  EXPECT_FALSE(
      isXmlName("\xC2\xB7"
                "a"));
}

TEST(XmlNames, OtherAsciiIsRefused) {
  for (char c = 1; c < 0x7F; ++c) {
    const bool allowed = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                         (c >= 'a' && c <= 'z') || c == '-' || c == '.' || c == '_';
    const char name[] = {'a', c};
    EXPECT_EQ(isXmlName({name, 2}), allowed) << "code " << int{c};
  }
  EXPECT_FALSE(isXmlName({"a\0", 2}));
  EXPECT_FALSE(isXmlName("a\x7F"));
}

TEST(XmlNames, EmptyIsRefused) {
  EXPECT_FALSE(isXmlName(""));
  EXPECT_FALSE(isXmlName("xml:"));
}

TEST(XmlNames, OnlyTheXmlPrefixIsDeclaredEverywhere) {
  EXPECT_TRUE(isXmlName("xml:space"));
  EXPECT_FALSE(isXmlName("a:b"));
  EXPECT_FALSE(isXmlName(":a"));
  EXPECT_FALSE(isXmlName("a:"));
  EXPECT_FALSE(isXmlName("xml:a:b"));
}

TEST(XmlNames, SignsThatAreNoLettersAreRefused) {
  EXPECT_FALSE(isXmlName("a\xC3\x97"));          // multiplication sign
  EXPECT_FALSE(isXmlName("\xE2\x82\xAC"));       // euro sign
  EXPECT_FALSE(isXmlName("a\xF0\x9F\x98\x80"));  // emoji
}

TEST(XmlNames, WhatIsNotUtf8IsRefused) {
  EXPECT_FALSE(isXmlName("\xE9tage"));
  EXPECT_FALSE(isXmlName("a\xC3"));
  EXPECT_FALSE(isXmlName("\xED\xA0\x80"));  // a surrogate
}

}  // namespace
}  // namespace quorvan::dom
