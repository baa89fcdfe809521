// Items that are read through a buffer which outlasts them: a missing one repeats what was read
// before it.

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include <tests/elements/element_file.h>

namespace quorvan::test {
namespace {

std::string textWith(const std::string& numbers) {
  return textItem("Contents", L"A-A") + pointItem("Location", CKtPnt3D(1, 2, 3)) +
         doubleItem("Angle", 90) + numbers + doubleItem("Height", 2.5);
}

void expectNumbers(const CKtZantoText& text, long x, long y, unsigned long color) {
  EXPECT_EQ(text.GetJustificationX(), x);
  EXPECT_EQ(text.GetJustificationY(), y);
  EXPECT_EQ(text.GetColor(), color);
}

CKtZantoText textWithNumbers() {
  CKtZantoText text;
  text.SetJustificationX(static_cast<CKtZantoText::eJustification>(41));
  text.SetJustificationY(static_cast<CKtZantoText::eJustification>(42));
  text.SetColor(43);
  return text;
}

TEST(NumberBuffer, AMissingVerticalJustificationRepeatsTheHorizontalOne) {
  CKtZantoText text = textWithNumbers();
  EXPECT_EQ(readItems(textWith(longItem("JustificationX", 5) + longItem("Color", 7)), text), 0);
  expectNumbers(text, 5, 5, 7);
  EXPECT_EQ(text.GetHeight(), 2.5);
}

TEST(NumberBuffer, AMissingColorRepeatsTheVerticalJustification) {
  CKtZantoText text = textWithNumbers();
  EXPECT_EQ(
      readItems(textWith(longItem("JustificationX", 5) + longItem("JustificationY", -1)), text), 0);
  expectNumbers(text, 5, -1, 0xFFFFFFFFUL);
}

TEST(NumberBuffer, ARunOfMissingNumbersRepeatsTheLastOneRead) {
  CKtZantoText text = textWithNumbers();
  EXPECT_EQ(readItems(textWith(longItem("JustificationX", 6)), text), 0);
  expectNumbers(text, 6, 6, 6);
}

TEST(NumberBuffer, BeginsWithZeroInEveryCall) {
  CKtZantoText text = textWithNumbers();
  EXPECT_EQ(readItems(textWith(longItem("JustificationY", 8) + longItem("Color", 9)), text), 0);
  expectNumbers(text, 0, 8, 9);
  EXPECT_EQ(readItems(textWith(""), text), 0);
  expectNumbers(text, 0, 0, 0);
}

TEST(NumberBuffer, JustificationsAreAnyNumber) {
  CKtZantoText text = textWithNumbers();
  text.SetJustificationX(static_cast<CKtZantoText::eJustification>(-2147483647 - 1));
  text.SetJustificationY(static_cast<CKtZantoText::eJustification>(2147483647));
  writeAlone(text);
  CKtFiler filer;
  filer.newFiler(kFileName);
  CKtZantoText read;
  EXPECT_EQ(read.fileIn(&filer), 1);
  expectNumbers(read, -2147483647L - 1, 2147483647L, 43);
}

TEST(NumberBuffer, AMissingColorIsBlackWhereNoNumberStandsBeforeIt) {
  CKtZantoLine line;
  line.SetColor(5);
  EXPECT_EQ(readItems(pointItem("Point1", CKtPnt3D()) + pointItem("Point2", CKtPnt3D()), line), 0);
  EXPECT_EQ(line.GetColor(), 0UL);
  CKtZantoCircle circle;
  circle.SetColor(5);
  EXPECT_EQ(readItems(pointItem("Center", CKtPnt3D()) + doubleItem("Radius", 3), circle), 0);
  EXPECT_EQ(circle.GetColor(), 0UL);
}

TEST(NumberBuffer, TheCountOfAListDoesNotGoThroughIt) {
  CKtFilledPolygon polygon;
  polygon.SetColor(5);
  EXPECT_EQ(readItems(listItem("Vector", 1, pointItem("Point1", CKtPnt3D())), polygon), 0);
  EXPECT_EQ(polygon.GetColor(), 0UL);
  EXPECT_EQ(polygon.getNbPoints(), 1U);
}

// --- the flags of the straight bar -------------------------------------------------------------

std::string straightBarWith(const std::string& flags, const std::string& hidden) {
  return pointItem("Point1", CKtPnt3D()) + pointItem("Point2", CKtPnt3D(1, 0, 0)) +
         doubleItem("HookLength1", 1) + doubleItem("HookLength2", 2) + flags +
         doubleItem("HookAngle1", 3) + doubleItem("HookAngle2", 4) + textItem("SteelGrade", L"S") +
         textItem("Adherence", L"True") + doubleItem("Diameter", 8) + longItem("Reference", 1) +
         hidden;
}

CKtZantoStraightBar straightBar(bool hook1Up, bool hook2Up, bool hidden) {
  CKtZantoStraightBar bar;
  bar.setHook1Up(hook1Up);
  bar.setHook2Up(hook2Up);
  bar.setHidden(hidden);
  return bar;
}

TEST(FlagBuffer, AMissingSecondHookRepeatsTheFirst) {
  CKtZantoStraightBar bar = straightBar(false, false, false);
  EXPECT_EQ(
      readItems(straightBarWith(textItem("Hook1Up", L"TRUE"), flagItem("Hidden", false)), bar), 0);
  EXPECT_EQ(bar.getHook1Up(), 1.0);
  EXPECT_EQ(bar.getHook2Up(), 1.0);
  EXPECT_FALSE(bar.getHidden());
}

TEST(FlagBuffer, AMissingFirstHookIsClear) {
  CKtZantoStraightBar bar = straightBar(true, false, false);
  EXPECT_EQ(readItems(straightBarWith(flagItem("Hook2Up", true), ""), bar), 0);
  EXPECT_EQ(bar.getHook1Up(), 0.0);
  EXPECT_EQ(bar.getHook2Up(), 1.0);
}

TEST(FlagBuffer, BeginsEmptyInEveryCall) {
  CKtZantoStraightBar bar = straightBar(true, true, true);
  EXPECT_EQ(readItems(straightBarWith("", ""), bar), 0);
  EXPECT_EQ(bar.getHook1Up(), 0.0);
  EXPECT_EQ(bar.getHook2Up(), 0.0);
}

TEST(FlagBuffer, AMissingHiddenFlagRepeatsNothing) {
  CKtZantoStraightBar bar = straightBar(false, false, false);
  EXPECT_EQ(
      readItems(straightBarWith(flagItem("Hook1Up", true) + flagItem("Hook2Up", true), ""), bar),
      1);
  EXPECT_FALSE(bar.getHidden());
}

TEST(StraightBar, HookGettersGiveTheFlagAsADouble) {
  CKtZantoStraightBar bar;
  bar.setHook1Up(true);
  EXPECT_EQ(bar.getHook1Up(), 1.0);
  EXPECT_EQ(bar.getHook2Up(), 0.0);
  bar.setHook1Up(false);
  bar.setHook2Up(true);
  EXPECT_EQ(bar.getHook1Up(), 0.0);
  EXPECT_EQ(bar.getHook2Up(), 1.0);
  static_assert(std::is_same_v<decltype(bar.getHook1Up()), double>);
  static_assert(std::is_same_v<decltype(bar.getHook2Up()), double>);
}

}  // namespace
}  // namespace quorvan::test
