#include <tools/draw/scene/scale_choice.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace quorvan::tool {

namespace {

TEST(ToolStatedScale, IsReadFromTextsThatStateOne) {
  const std::pair<const char*, double> cases[] = {{"1:25", 25},
                                                  {"1/25", 25},
                                                  {"Scale 1:50", 50},
                                                  {"Ech. 1/20", 20},
                                                  {"scale=1:100", 100},
                                                  {"SCALE:1:10", 10},
                                                  {"(1:5)", 5},
                                                  {"1 : 25", 25},
                                                  {"1 / 200", 200},
                                                  {"Detail A 1:2", 2},
                                                  {"1:2.5", 2.5},
                                                  {"1:1", 1},
                                                  {"1:10000", 10000},
                                                  {"1:25 et 1:50", 25},
                                                  {"11:00, 1:75", 75},
                                                  {"21/25, 1:20", 20},
                                                  {"Section A-A 1:25 (1:50)", 25}};
  for (const auto& [text, scale] : cases) {
    const auto found = statedScale(text);
    ASSERT_TRUE(found.has_value()) << text;
    EXPECT_EQ(*found, scale) << text;
  }
}

TEST(ToolStatedScale, IsNotReadFromOtherTexts) {
  for (const char* const text :
       {"",      "1",     "1:",    "1 :",   "1:x",   "25",    "2:25",       "1.25",
        "11:25", "a1:25", "1:3",   "1:24",  "1:0",   "1:-25", "1:0.5",      "1:20000",
        "1;25",  "1 25",  "1:/25", "21:25", "v1/25", "1:1e9", "slope 1:50", "PENTE 1/100"}) {
    EXPECT_FALSE(statedScale(text).has_value()) << text;
  }
}

TEST(ToolUsualHeight, IsThatOfMostOfTheLettering) {
  EXPECT_FALSE(usualHeight({}).has_value());
  EXPECT_EQ(usualHeight({{50}, {}, {}}), 50);
  EXPECT_EQ(usualHeight({{50, 100}, {}, {}}), 50);
  EXPECT_EQ(usualHeight({{100, 50, 62.5}, {}, {}}), 62.5);
  EXPECT_EQ(usualHeight({{1000, 62.5, 62.5, 10, 62.5, 500}, {}, {}}), 62.5);
}

TEST(ToolUsualScale, IsTheNextOneThatIsNotBelow) {
  const std::pair<double, double> cases[] = {
      {0.0, 1},     {0.3, 1},     {1, 1},       {1.0001, 2},  {2, 2},     {2.1, 2.5},  {2.5, 2.5},
      {2.6, 5},     {5.1, 10},    {10.5, 20},   {20.5, 25},   {25, 25},   {25.01, 50}, {50.01, 75},
      {75, 75},     {75.01, 100}, {100.5, 200}, {201, 250},   {251, 500}, {501, 1000}, {1001, 2000},
      {2001, 2500}, {2501, 5000}, {5001, 7500}, {7501, 10000}};
  for (const auto& [least, scale] : cases) {
    EXPECT_EQ(usualScale(least), scale) << least;
  }
}

TEST(ToolUsualScale, NeverShrinksAndIsItsOwnNext) {
  std::mt19937 random(71);
  double before = 0.0;
  double scaleBefore = 0.0;
  for (int i = 0; i < 2000; ++i) {
    const double least = before + static_cast<double>(random() % 1000) / 100.0 * (1 + before / 50);
    const double scale = usualScale(least);
    ASSERT_GE(scale, least);
    ASSERT_GE(scale, scaleBefore);
    ASSERT_EQ(usualScale(scale), scale);
    before = least;
    scaleBefore = scale;
  }
}

ScaleHints lettering(double height) {
  return {{height, height, height}, {}, {}};
}

TEST(ToolScaleOfLettering, GivesLettersOfTwoAndAHalfMillimetres) {
  for (const double scale : {1.0, 2.0, 5.0, 10.0, 20.0, 25.0, 50.0, 75.0, 100.0, 200.0, 500.0}) {
    EXPECT_EQ(chooseScale(lettering(2.5 * scale)), scale);
  }
}

TEST(ToolScaleOfLettering, IsTheNearestUsualOneByRatio) {
  EXPECT_EQ(chooseScale(lettering(2.5 * 24)), 25);
  EXPECT_EQ(chooseScale(lettering(2.5 * 34)), 25) << "34 is 1.36 times 25, and 50 1.47 times 34";
  EXPECT_EQ(chooseScale(lettering(2.5 * 37)), 50) << "37 is 1.48 times 25, and 50 1.35 times 37";
  EXPECT_EQ(chooseScale(lettering(3.5 * 25)), 25);
  EXPECT_EQ(chooseScale(lettering(1.8 * 50)), 50) << "90 high: 1.8 mm at 1:50, 3.6 at 1:25";
}

TEST(ToolScaleOfLettering, IsNoneWithoutTextsOrForHeightsThatNoScaleSuits) {
  EXPECT_FALSE(chooseScale({}).has_value());
  EXPECT_FALSE(chooseScale(lettering(0.5)).has_value()) << "even 1:1 makes it too small";
  EXPECT_FALSE(chooseScale(lettering(1e6)).has_value()) << "even 1:10000 leaves it too large";
}

TEST(ToolScaleOfLettering, IsTheStatedOneWhereLettersStayLegible) {
  const auto stated = [](double height, std::vector<double> scales) {
    return chooseScale({{height}, std::move(scales), {}});
  };
  EXPECT_EQ(stated(75, {50}), 50) << "1.5 mm is the least";
  EXPECT_EQ(stated(74, {50}), 25) << "less is not";
  EXPECT_EQ(stated(100, {20}), 20) << "5 mm is the most";
  EXPECT_EQ(stated(101, {20}), 50) << "more is not";
  EXPECT_EQ(stated(62.5, {500, 20}), 20);
  EXPECT_EQ(stated(62.5, {20, 25}), 25) << "the one that suits the letters better";
}

TEST(ToolScaleOfLettering, PrefersTheOneAtWhichTheFrameIsAUsualSheet) {
  ScaleHints hints = lettering(62.5);  // 2.5 mm at 1:25
  hints.frame = SheetBox{{0, 0}, {420 * 20, 297 * 20}};
  EXPECT_EQ(chooseScale(hints), 20);
  hints.frame = SheetBox{{0, 0}, {420 * 20 * 1.019, 297 * 20 * 0.981}};
  EXPECT_EQ(chooseScale(hints), 20) << "within two in a hundred";
  hints.frame = SheetBox{{0, 0}, {420 * 20 * 1.03, 297 * 20}};
  EXPECT_EQ(chooseScale(hints), 25) << "no sheet is so wide";
  hints.frame = SheetBox{{0, 0}, {420 * 20, 297 * 20}};
  hints.statedScales = {25};
  EXPECT_EQ(chooseScale(hints), 25) << "what a text states goes before";
}

}  // namespace

}  // namespace quorvan::tool
