#include <tools/text/text_beginning.h>

#include <gtest/gtest.h>

#include <string>

namespace quorvan::tool {

namespace {

TEST(ToolTextBeginning, IsTheWholeOfAShortText) {
  EXPECT_EQ(textBeginning("", 0), "");
  EXPECT_EQ(textBeginning("", 5), "");
  EXPECT_EQ(textBeginning("abc", 3), "abc");
  EXPECT_EQ(textBeginning("abc", 4), "abc");
  EXPECT_EQ(textBeginning("abc", 2), "ab");
  EXPECT_EQ(textBeginning("abc", 0), "");
}

// Characters of one to four bytes, cut at every place.
TEST(ToolTextBeginning, EndsBetweenCharacters) {
  const std::string characters[] = {"a", "\u00e9", "\u20ac", "\U0001f600", "b"};
  std::string text;
  for (const std::string& character : characters) {
    text += character;
  }
  for (std::size_t most = 0; most <= text.size(); ++most) {
    std::string expected;
    for (const std::string& character : characters) {
      if (expected.size() + character.size() > most) {
        break;
      }
      expected += character;
    }
    EXPECT_EQ(textBeginning(text, most), expected) << most;
  }
}

// What is no UTF-8 at all has no character to stop at.
TEST(ToolTextBeginning, IsEmptyWhereNoCharacterBegins) {
  EXPECT_EQ(textBeginning("\x80\x80\x80\x80", 2), "");
}

}  // namespace

}  // namespace quorvan::tool
