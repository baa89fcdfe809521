#include <tools/draw/scene/colors.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>

#include <tests/tools/loaded_file.h>

namespace {

using quorvan::test::loadedElements;
using quorvan::tool::Color;
using quorvan::tool::colorOf;
using quorvan::tool::ColorScheme;
using quorvan::tool::colorSchemeNamed;
using quorvan::tool::legibleOnPaper;
using quorvan::tool::webColor;

ColorScheme schemeFor(const std::string& elements) {
  return guessColorScheme(loadedElements(elements).file());
}

std::string lineOfColor(const std::string& number) {
  return "<CKtZantoLine><Color long='" + number + "'/></CKtZantoLine>";
}

TEST(ToolColorScheme, IsKnownByItsName) {
  EXPECT_EQ(colorSchemeNamed("index"), ColorScheme::kIndex);
  EXPECT_EQ(colorSchemeNamed("rgb"), ColorScheme::kRgb);
  EXPECT_EQ(colorSchemeNamed("bgr"), ColorScheme::kBgr);
  for (const char* const name : {"auto", "", "RGB", "rgb "}) {
    EXPECT_FALSE(colorSchemeNamed(name).has_value()) << name;
  }
}

TEST(ToolColorScheme, IsAnIndexUpToTheLastThereIs) {
  EXPECT_EQ(schemeFor(""), ColorScheme::kIndex);
  EXPECT_EQ(schemeFor(lineOfColor("0") + lineOfColor("255")), ColorScheme::kIndex);
  EXPECT_EQ(schemeFor(lineOfColor("256")), ColorScheme::kIndex);
  EXPECT_EQ(schemeFor(lineOfColor("257")), ColorScheme::kBgr);
  EXPECT_EQ(schemeFor(lineOfColor("1") + lineOfColor("16711680")), ColorScheme::kBgr);
  EXPECT_EQ(schemeFor(lineOfColor("-1")), ColorScheme::kBgr) << "4294967295";
}

TEST(ToolColorScheme, IsToldByColorsAlone) {
  EXPECT_EQ(schemeFor("<CKtZantoPointBar><Reference long='70000'/></CKtZantoPointBar>"
                      "<Unknown><Color long='70000'/></Unknown>"),
            ColorScheme::kIndex);
}

TEST(ToolColors, AreReadFromTheirPartsInEitherOrder) {
  EXPECT_EQ(colorOf(0x112233, ColorScheme::kRgb), (Color{0x11, 0x22, 0x33}));
  EXPECT_EQ(colorOf(0x112233, ColorScheme::kBgr), (Color{0x33, 0x22, 0x11}));
  EXPECT_EQ(colorOf(0xFF112233, ColorScheme::kRgb), (Color{0x11, 0x22, 0x33}));
  EXPECT_EQ(colorOf(0, ColorScheme::kRgb), Color());
}

TEST(ToolColors, AreBlackWherePaperIsWhite) {
  EXPECT_EQ(legibleOnPaper({255, 255, 255}), Color());
  EXPECT_EQ(colorOf(7, ColorScheme::kIndex), Color());
  EXPECT_EQ(colorOf(255, ColorScheme::kIndex).red, colorOf(255, ColorScheme::kIndex).blue);
}

TEST(ToolColors, AreBlackBeyondThePalette) {
  for (const std::int64_t number : {-1LL, -2147483648LL, 256LL, 257LL, 4294967295LL}) {
    EXPECT_EQ(colorOf(number, ColorScheme::kIndex), Color()) << number;
  }
}

TEST(ToolColors, HaveTheirMainHuesInThePalette) {
  EXPECT_EQ(colorOf(1, ColorScheme::kIndex), (Color{255, 0, 0}));
  EXPECT_EQ(colorOf(5, ColorScheme::kIndex), (Color{0, 0, 255}));
  EXPECT_EQ(colorOf(10, ColorScheme::kIndex), (Color{255, 0, 0}));
  EXPECT_EQ(colorOf(90, ColorScheme::kIndex), (Color{0, 255, 0}));
  EXPECT_EQ(colorOf(170, ColorScheme::kIndex), (Color{0, 0, 255}));
}

TEST(ToolColors, GetDarkerAndPalerWithinAHue) {
  for (std::int64_t first = 10; first < 250; first += 10) {
    int before = 256;
    for (std::int64_t number = first; number < first + 10; number += 2) {
      const Color full = colorOf(number, ColorScheme::kIndex);
      const Color pale = colorOf(number + 1, ColorScheme::kIndex);
      const int brightest = std::max({full.red, full.green, full.blue});
      EXPECT_LT(brightest, before) << number;
      before = brightest;
      EXPECT_EQ(std::min({full.red, full.green, full.blue}), 0) << number;
      EXPECT_GT(std::min({pale.red, pale.green, pale.blue}), 0) << number;
    }
  }
}

TEST(ToolColors, AreGreysAtTheEndOfThePaletteAndNeverWhite) {
  int before = -1;
  for (std::int64_t number = 250; number < 256; ++number) {
    const Color grey = colorOf(number, ColorScheme::kIndex);
    EXPECT_EQ(grey.red, grey.green);
    EXPECT_EQ(grey.green, grey.blue);
    EXPECT_GT(grey.red, before) << number;
    before = grey.red;
  }
  for (std::int64_t number = 0; number < 256; ++number) {
    EXPECT_NE(colorOf(number, ColorScheme::kIndex), (Color{255, 255, 255})) << number;
  }
}

TEST(ToolColors, AreWrittenAsWebPagesWriteThem) {
  EXPECT_EQ(webColor({0x1A, 0x2B, 0x3C}), "#1a2b3c");
  EXPECT_EQ(webColor({}), "#000000");
  EXPECT_EQ(webColor({255, 255, 255}), "#ffffff");
}

TEST(ToolColors, ReadBackFromTheirWebColor) {
  std::mt19937 random(45);
  for (int round = 0; round < 500; ++round) {
    const auto number = static_cast<std::int64_t>(random() % 0xFFFFFF);
    const std::string text = webColor(colorOf(number, ColorScheme::kRgb));
    EXPECT_EQ(std::strtol(text.c_str() + 1, nullptr, 16), number) << text;
  }
}

}  // namespace
