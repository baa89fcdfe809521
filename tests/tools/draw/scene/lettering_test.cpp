// Measures of letters without a font, and of dashes.
#include <tools/draw/scene/lettering_metrics.h>

#include <gtest/gtest.h>

#include <numbers>

#include <tools/draw/scene/text_width.h>

namespace quorvan::tool {

namespace {

constexpr double kSame = 1e-9;

// Advances of a widely used sans-serif font, in thousandths of its size.
struct Advance {
  const char* letter;
  double thousandths;
};
constexpr Advance kAdvancesOfAFont[] = {{"0", 556}, {"1", 556}, {"9", 556},  {"A", 667}, {"B", 667},
                                        {"H", 722}, {"I", 278}, {"M", 833},  {"W", 944}, {"a", 556},
                                        {"e", 556}, {"i", 222}, {"l", 222},  {"m", 833}, {"t", 278},
                                        {"w", 722}, {" ", 278}, {"-", 333},  {"=", 584}, {"(", 333},
                                        {".", 278}, {"/", 278}, {"@", 1015}, {"%", 889}};

TEST(ToolTextWidth, IsNoneForNoText) {
  EXPECT_EQ(textWidth("", 10.0), 0.0);
  EXPECT_EQ(textWidth("Ab", 0.0), 0.0);
}

TEST(ToolTextWidth, GrowsWithTheHeight) {
  EXPECT_NEAR(textWidth("12 HA16", 5.0), 2.0 * textWidth("12 HA16", 2.5), kSame);
}

TEST(ToolTextWidth, IsTheSumOfItsLetters) {
  EXPECT_NEAR(textWidth("Hi 3", 2.0),
              textWidth("H", 2.0) + textWidth("i", 2.0) + textWidth(" ", 2.0) + textWidth("3", 2.0),
              kSame);
}

// What is measured without the font must not come out narrower than a font that may stand in.
TEST(ToolTextWidth, IsNeverNarrowerThanTheFontThatIsNamedFirst) {
  for (const Advance& one : kAdvancesOfAFont) {
    const double size = fontSizeOf(1.0);
    EXPECT_GE(textWidth(one.letter, 1.0), one.thousandths / 1000.0 * size - kSame) << one.letter;
    EXPECT_LE(textWidth(one.letter, 1.0), 1.5 * one.thousandths / 1000.0 * size) << one.letter;
  }
}

TEST(ToolTextWidth, CountsLettersAndNotBytes) {
  const double accented = textWidth("\u00E9", 1.0);
  EXPECT_GT(accented, textWidth("e", 1.0));
  EXPECT_LT(accented, 2.0 * textWidth("e", 1.0));
  EXPECT_NEAR(textWidth("\u00E9\u00E0\u00F8", 1.0), 3.0 * accented, kSame);
  EXPECT_NEAR(textWidth("\u2013", 1.0), accented, kSame) << "a dash is no letter of East Asia";
  const double wide = textWidth("\u6F22", 1.0);
  EXPECT_NEAR(wide, fontSizeOf(1.0), kSame) << "as wide as the font is high";
  EXPECT_NEAR(textWidth("\U00020000", 1.0), wide, kSame);
}

TEST(ToolTextWidth, TakesNothingForMarksOverALetterAndRoomForATab) {
  EXPECT_EQ(textWidth("e\u0301", 1.0), textWidth("e", 1.0));
  EXPECT_NEAR(textWidth("\t", 1.0), 4.0 * textWidth(" ", 1.0), kSame);
  EXPECT_EQ(textWidth("\x01\x1F", 1.0), 0.0);
}

TEST(ToolFontSize, HasCapitalsOfTheHeight) {
  EXPECT_NEAR(0.716 * fontSizeOf(2.5), 2.5, kSame);
}

TEST(ToolBaseLine, LiesBelowTheMiddleAndTheTop) {
  const Lettering base{"x", {10, 20}, 4.0, 0.0, AlignX::kLeft, AlignY::kBase};
  EXPECT_EQ(baseOf(base), (PlanePoint{10, 20}));
  Lettering middle = base;
  middle.alignY = AlignY::kMiddle;
  EXPECT_EQ(baseOf(middle), (PlanePoint{10, 18}));
  Lettering top = base;
  top.alignY = AlignY::kTop;
  EXPECT_EQ(baseOf(top), (PlanePoint{10, 16}));
  // Turned by a right angle to the left, "below" is to the right.
  top.angle = std::numbers::pi / 2.0;
  EXPECT_NEAR(baseOf(top).x, 14.0, kSame);
  EXPECT_NEAR(baseOf(top).y, 20.0, kSame);
}

// A dash and the gap behind it show on paper, and a wide line has longer ones.
TEST(ToolDashes, AreLongEnoughToBeSeen) {
  for (const double width : {0.0, 0.13, 0.35, 0.5}) {
    EXPECT_GE(dashOf(width), 1.6);
  }
  EXPECT_EQ(dashOf(2.0), 6.0);
  EXPECT_EQ(dashOf(10.0), 30.0);
  EXPECT_GT(0.75 * dashOf(5.0), 5.0) << "the gap of a wide line is longer than the line is wide";
}

}  // namespace

}  // namespace quorvan::tool
