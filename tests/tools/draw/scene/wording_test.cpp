// What the program writes by itself.
#include <tools/draw/scene/wording.h>

#include <gtest/gtest.h>

#include <set>

#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

namespace {

BarWords wordsOf(std::int64_t mark, std::uint64_t number, double diameter) {
  BarWords words;
  words.mark = mark;
  words.number = number;
  words.diameter = diameter;
  return words;
}

TEST(ToolBarText, IsAsAnEnglishDetailerWritesIt) {
  BarWords words = wordsOf(5, 12, 16);
  EXPECT_EQ(barText(words, Language::kEnglish), "12 H16-05");
  words.spacingInMillimetres = "200";
  words.spacingInCentimetres = "20";
  words.shortestMetres = words.longestMetres = 3.2;
  EXPECT_EQ(barText(words, Language::kEnglish), "12 H16-05-200");
  words.isSmooth = true;
  EXPECT_EQ(barText(words, Language::kEnglish), "12 R16-05-200");
}

TEST(ToolBarText, IsAsAFrenchDetailerWritesIt) {
  BarWords words = wordsOf(5, 12, 16);
  EXPECT_EQ(barText(words, Language::kFrench), "12 HA16");
  words.shortestMetres = words.longestMetres = 3.2;
  EXPECT_EQ(barText(words, Language::kFrench), "12 HA16 L=3.20");
  words.spacingInMillimetres = "200";
  words.spacingInCentimetres = "20";
  EXPECT_EQ(barText(words, Language::kFrench), "12 HA16 e=20 L=3.20");
  words.isSmooth = true;
  EXPECT_EQ(barText(words, Language::kFrench), "12 Dx16 e=20 L=3.20");
}

TEST(ToolBarText, SaysFromWhichLengthToWhichBarsGo) {
  BarWords words = wordsOf(2, 20, 10);
  words.shortestMetres = 1.0;
  words.longestMetres = 3.85;
  EXPECT_EQ(barText(words, Language::kFrench), "20 HA10 L=1.00 \u00E0 3.85");
  EXPECT_EQ(barText(words, Language::kEnglish), "20 H10-02");
  words.shortestMetres = 3.849;
  EXPECT_EQ(barText(words, Language::kFrench), "20 HA10 L=3.85") << "as they are rounded";
}

TEST(ToolBarText, SaysWhereALengthIsALeastOne) {
  BarWords words = wordsOf(2, 4, 8);
  words.shortestMetres = 1.2;
  words.longestMetres = 1.6;
  words.isLengthLeast = true;
  EXPECT_EQ(barText(words, Language::kFrench), "4 HA8 L\u22651.20");
}

TEST(ToolBarText, HasTwoDigitsForAMarkAtLeast) {
  const std::pair<std::int64_t, const char*> cases[] = {
      {0, "H8-00"}, {7, "H8-07"}, {10, "H8-10"}, {123, "H8-123"}, {-1, "H8--1"}};
  for (const auto& [mark, text] : cases) {
    EXPECT_EQ(barText(wordsOf(mark, 0, 8), Language::kEnglish), text);
  }
}

TEST(ToolBarText, SaysNoNumberThatIsNotKnown) {
  EXPECT_EQ(barText(wordsOf(3, 0, 10), Language::kFrench), "HA10");
  EXPECT_EQ(barText(wordsOf(3, 1, 10), Language::kFrench), "1 HA10");
}

TEST(ToolBarText, SaysDiametersAsTheyAre) {
  EXPECT_EQ(barText(wordsOf(3, 0, 9.5), Language::kFrench), "HA9.5");
  EXPECT_EQ(barText(wordsOf(3, 0, 12.700001), Language::kFrench), "HA12.7");
  EXPECT_EQ(barText(wordsOf(3, 0, 0), Language::kFrench), "HA0");
}

TEST(ToolWording, HasEveryWordInEachLanguageAndNoneTwice) {
  for (const Language language : {Language::kEnglish, Language::kFrench}) {
    const Wording& words = wordingOf(language);
    std::set<std::string_view> seen;
    for (const std::string_view word :
         {words.formwork, words.mesh, words.bar, words.link, words.endOn, words.repartition,
          words.hidden, words.drawing, words.noRecord, words.file, words.producedBy, words.checkSum,
          words.scale}) {
      EXPECT_FALSE(word.empty());
      EXPECT_TRUE(seen.insert(word).second) << word;
    }
  }
}

TEST(ToolLayerNames, AreFoundAgain) {
  std::set<std::string_view> seen;
  for (std::size_t i = 0; i < kLayers; ++i) {
    const auto layer = static_cast<Layer>(i);
    EXPECT_EQ(layerNamed(layerName(layer)), layer);
    EXPECT_TRUE(seen.insert(layerName(layer)).second);
  }
  for (const char* const name : {"", "Bars", "bar", "bars ", "all"}) {
    EXPECT_FALSE(layerNamed(name).has_value()) << name;
  }
}

}  // namespace

}  // namespace quorvan::tool
