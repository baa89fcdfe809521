#include <gtest/gtest.h>

#include <tools/draw/dxf/text_code.h>

namespace {

using quorvan::tool::dxfText;
using quorvan::tool::TextLosses;

// A text that comes through whole.
std::string dxfWhole(std::string_view text) {
  TextLosses losses;
  std::string result = dxfText(text, 255, losses);
  EXPECT_EQ(losses, TextLosses());
  return result;
}

TEST(ToolDxfText, IsInTheCodePageOfWindows) {
  EXPECT_EQ(dxfWhole("étrier"), "\xE9trier");
  EXPECT_EQ(dxfWhole("\u20AC \u2013 \u0153 \u0178"), "\x80 \x96 \x9C \x9F");
  EXPECT_EQ(dxfWhole("\u00A0\u00FF"), "\xA0\xFF");
}

TEST(ToolDxfText, HasTheCodeOfTheDiameterSign) {
  EXPECT_EQ(dxfWhole("\u230012"), "%%c12");
  EXPECT_EQ(dxfWhole("cadre ø8"), "cadre %%c8");
  EXPECT_EQ(dxfWhole("Ø 16"), "%%c 16");
  EXPECT_EQ(dxfWhole("\u2205 16"), "%%c 16");
}

TEST(ToolDxfText, LeavesTheLetterWithAStrokeWhereNoNumberFollows) {
  EXPECT_EQ(dxfWhole("Ørsted"), "\xD8rsted");
  EXPECT_EQ(dxfWhole("ø  8"), "\xF8  8");
  EXPECT_EQ(dxfWhole("4 ø"), "4 \xF8");
}

TEST(ToolDxfText, KeepsTheCodesThatItHas) {
  EXPECT_EQ(dxfWhole("%%c25 %%p5 %%%"), "%%c25 %%p5 %%%");
}

// A caret and a letter would be a control character.
TEST(ToolDxfText, WritesACaretSoThatItReadsAsOne) {
  EXPECT_EQ(dxfWhole("^J^"), "^ J^ ");
}

TEST(ToolDxfText, HasNumbersForCharactersThatTheCodePageLacks) {
  TextLosses losses;
  EXPECT_EQ(dxfText("a \u2264 b", 255, losses), "a \\U+2264 b");
  EXPECT_TRUE(losses.isEscaped);
  EXPECT_FALSE(losses.isCut || losses.isBroken);
}

TEST(ToolDxfText, HasAQuestionMarkForCharactersBeyondFourDigits) {
  TextLosses losses;
  EXPECT_EQ(dxfText("\U0001F600", 255, losses), "?");
  EXPECT_TRUE(losses.isEscaped);
}

TEST(ToolDxfText, IsOneLineWithoutControlCharacters) {
  for (const std::string_view text : {"a\nb", "a\rb", "a\tb", "a\177b", "a\u0085b", "a\u0001b"}) {
    TextLosses losses;
    EXPECT_EQ(dxfText(text, 255, losses), "a b");
    EXPECT_TRUE(losses.isBroken);
  }
}

TEST(ToolDxfText, IsCutBetweenCodes) {
  TextLosses losses;
  EXPECT_EQ(dxfText("ab\u2264", 8, losses), "ab");
  EXPECT_TRUE(losses.isCut);
  EXPECT_EQ(dxfText(std::string(300, 'x'), 255, losses), std::string(255, 'x'));
}

TEST(ToolDxfText, TakesBytesThatAreNoCharacterForOneThatIsLost) {
  TextLosses losses;
  EXPECT_EQ(dxfText("a\xFF", 255, losses), "a\\U+FFFD");
  EXPECT_TRUE(losses.isEscaped);
}

}  // namespace
