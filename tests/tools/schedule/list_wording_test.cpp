// The words of the bar list in both languages.
#include <tools/schedule/list_wording.h>

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <set>
#include <string>
#include <vector>

namespace quorvan::tool {

namespace {

// Every text of a wording, in the order of its members.
std::vector<std::string_view> everyTextOf(const ListWording& words) {
  std::vector<std::string_view> texts(words.shapes.begin(), words.shapes.end());
  texts.insert(texts.end(), words.reasons.begin(), words.reasons.end());
  const auto addMembers = [&texts](const auto& group) {
    constexpr std::size_t kCount = sizeof(group) / sizeof(std::string_view);
    static_assert(kCount * sizeof(std::string_view) == sizeof(group));
    const auto members = std::bit_cast<std::array<std::string_view, kCount>>(group);
    texts.insert(texts.end(), members.begin(), members.end());
  };
  addMembers(words.titles);
  addMembers(words.columns);
  addMembers(words.conventions);
  addMembers(words.remarks);
  addMembers(words.explanations);
  for (const std::string_view text : {words.range, words.noBars, words.totalMass, words.page}) {
    texts.push_back(text);
  }
  return texts;
}

std::multiset<char> placeholdersIn(std::string_view text) {
  std::multiset<char> places;
  for (std::size_t at = text.find('{'); at != std::string_view::npos; at = text.find('{', at + 1)) {
    places.insert(text.at(at + 1));
    EXPECT_EQ(text.at(at + 2), '}') << text;
  }
  return places;
}

TEST(ToolListWording, FillsItsPlacesWhereverTheyStand) {
  EXPECT_EQ(filled("", {}), "");
  EXPECT_EQ(filled("plain", {"unused"}), "plain");
  EXPECT_EQ(filled("{0}", {"a"}), "a");
  EXPECT_EQ(filled("{1} before {0}", {"a", "b"}), "b before a");
  EXPECT_EQ(filled("{0}{0}-{1}", {"a", ""}), "aa-");
  EXPECT_EQ(filled("from {0} on", {"{1}"}), "from {1} on");  // a value is no text to be filled
}

// A translation that forgot a value, or a text, would show at the customer's first.
TEST(ToolListWording, HasEveryTextInEveryLanguageWithTheSamePlaces) {
  const std::vector<std::string_view> english = everyTextOf(kEnglishList);
  for (const ListWording* const words : kListWordings) {
    const std::vector<std::string_view> texts = everyTextOf(*words);
    ASSERT_EQ(texts.size(), english.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
      EXPECT_FALSE(texts[i].empty()) << words->name << " lacks: " << english[i];
      EXPECT_EQ(placeholdersIn(texts[i]), placeholdersIn(english[i])) << texts[i];
    }
  }
}

TEST(ToolListWording, NamesItsLanguageInIt) {
  EXPECT_EQ(kEnglishList.language, "en");
  EXPECT_EQ(kEnglishList.name, "English");
  EXPECT_EQ(kEnglishList.decimalMark, '.');
  EXPECT_EQ(kFrenchList.language, "fr");
  EXPECT_EQ(kFrenchList.name, "fran\u00e7ais");
  EXPECT_EQ(kFrenchList.decimalMark, ',');
}

// Sheets of a workbook have titles of 31 characters at most, and each another.
TEST(ToolListWording, HasTitlesThatSheetsOfAWorkbookCanHave) {
  for (const ListWording* const words : kListWordings) {
    std::set<std::string_view> titles;
    for (const std::string_view title :
         {words->titles.bars, words->titles.sums, words->titles.drawings, words->titles.meshes,
          words->titles.leftOut, words->titles.conventions}) {
      EXPECT_LE(title.size(), 31U) << title;
      EXPECT_EQ(title.find_first_of("[]:*?/\\'"), std::string_view::npos) << title;
      EXPECT_TRUE(titles.insert(title).second) << title;
    }
  }
}

TEST(ToolListWording, NamesEveryShapeOfItsOwn) {
  struct Case {
    BarShape shape;
    const char* english;
    const char* french;
  };
  const Case cases[] = {
      {BarShape::kStraight, "straight bar", "barre droite"},
      {BarShape::kL, "L bar", "barre en L"},
      {BarShape::kU, "U bar", "barre en U"},
      {BarShape::kPin, "pin", "\u00e9pingle"},
      {BarShape::kPoint, "bar seen end-on", "barre vue en bout"},
      {BarShape::kPolygon, "polygon bar", "barre polygonale"},
      {BarShape::kFrameRect, "rectangular frame", "cadre rectangulaire"},
      {BarShape::kFrameCirc, "circular frame", "cadre circulaire"},
      {BarShape::kStirrup, "stirrup", "\u00e9trier"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(shapeName(kEnglishList, one.shape), one.english);
    EXPECT_EQ(shapeName(kFrenchList, one.shape), one.french);
  }
}

TEST(ToolListWording, SaysWhyABarIsLeftOut) {
  struct Case {
    LeftOutReason reason;
    const char* english;
    const char* french;
  };
  const Case cases[] = {
      {LeftOutReason::kBarNotThere, "the bar that it repeats is not in the file",
       "la barre r\u00e9p\u00e9t\u00e9e n'est pas dans le fichier"},
      {LeftOutReason::kNoBars, "it has no bars", "ne contient aucune barre"},
      {LeftOutReason::kSeenEndOn, "seen end-on: its length is not in the file",
       "vue en bout\u00a0: sa longueur n'est pas dans le fichier"},
      {LeftOutReason::kWidthUnknown, "its width is not in the file: the length is a lower bound",
       "sa largeur n'est pas dans le fichier\u00a0: la longueur est un minimum"},
      {LeftOutReason::kItemUnread, "Point2 is missing or no number",
       "Point2 est absent ou n'est pas un nombre"},
      {LeftOutReason::kNoLength, "no length that can be reckoned with",
       "aucune longueur exploitable"},
      {LeftOutReason::kNoDiameter, "no diameter that can be reckoned with",
       "aucun diam\u00e8tre exploitable"},
      {LeftOutReason::kMesh, "sheets have a list of their own",
       "les panneaux ont leur propre liste"},
  };
  for (const Case& one : cases) {
    LeftOut left;
    left.reason = one.reason;
    left.item = "Point2";
    EXPECT_EQ(reasonText(kEnglishList, left), one.english);
    EXPECT_EQ(reasonText(kFrenchList, left), one.french);
  }
}

}  // namespace

}  // namespace quorvan::tool
