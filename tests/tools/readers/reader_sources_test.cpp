// The types that readers in other languages have for the element classes follow the item tables.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <ostream>
#include <string>

#include <tests/support/saved_file.h>
#include <tests/support/test_data.h>
#include <tools/console/console.h>
#include <tools/readers/made_parts.h>
#include <tools/readers/reader_sources.h>
#include <tools/readers/spelling.h>

namespace quorvan::tool {

inline void PrintTo(const ReaderSource& source, std::ostream* out) {
  *out << source.path;
}

namespace {

class ReaderSources : public testing::TestWithParam<ReaderSource> {};

// With QUORVAN_UPDATE_GOLDEN set the parts are written instead.
TEST_P(ReaderSources, HaveTheClassesOfTheItemTables) {
  const std::string project = test::dataPath("../");
  const std::string path = project + std::string(GetParam().path);
  const std::string source = test::fileBytes(path);
  const std::string made = withMadeParts(source, GetParam().makeParts(readerClasses(project)));
  if (std::getenv("QUORVAN_UPDATE_GOLDEN") != nullptr) {
    std::ofstream(path, std::ios::binary) << made;
    return;
  }
  EXPECT_EQ(source, made);
}

INSTANTIATE_TEST_SUITE_P(Languages, ReaderSources, testing::ValuesIn(readerSources()),
                         [](const auto& source) {
                           const std::string_view path = source.param.path;
                           return std::string(path.substr(path.rfind('.') + 1));
                         });

TEST(MadeParts, StandBetweenTheirMarks) {
  const std::string source =
      "head\n// --- made from the item tables ---\nold\n// --- end of what is made ---\nmiddle\n"
      "  { --- made from the item tables }\n  { --- end of what is made }\ntail\n";
  const std::string made =
      "head\n// --- made from the item tables ---\nnew 1\n// --- end of what is made ---\nmiddle\n"
      "  { --- made from the item tables }\nnew 2\n  { --- end of what is made }\ntail\n";
  EXPECT_EQ(withMadeParts(source, {"new 1\n", "new 2\n"}), made);
  EXPECT_EQ(withMadeParts(made, {"new 1\n", "new 2\n"}), made);
}

TEST(MadeParts, AreAsManyAsTheMarks) {
  const std::string source = "--- made from the item tables\n--- end of what is made\n";
  EXPECT_THROW(withMadeParts(source, {}), Failure);
  EXPECT_THROW(withMadeParts(source, {"1", "2"}), Failure);
  EXPECT_THROW(withMadeParts("--- made from the item tables\n", {"1"}), Failure);
}

TEST(Spelling, IsThatOfTheLanguage) {
  EXPECT_EQ(camelCase("HookLength1"), "hookLength1");
  EXPECT_EQ(snakeCase("HookLength1"), "hook_length1");
  EXPECT_EQ(snakeCase("Hook1Up"), "hook1_up");
  EXPECT_EQ(snakeCase("LBar"), "l_bar");
  EXPECT_EQ(capitalized("a bar"), "A bar");
}

TEST(ReaderClasses, TellWhatTheItemsAloneDoNot) {
  const ReaderClasses classes = readerClasses(test::dataPath("../"));
  const auto find = [&](std::string_view name) {
    return *std::ranges::find(classes.all, name, &ReaderClass::name);
  };
  EXPECT_EQ(classes.ofBars.size(), 5U);
  EXPECT_TRUE(find("PointBar").isBar);
  EXPECT_EQ(find("PointBar").members.size(), 1U);
  EXPECT_FALSE(find("Repartition").isBar);
  EXPECT_EQ(find("Repartition").members[9].name, "BarIndex");
  EXPECT_EQ(find("Formwork").members[1].name, "Bulges");
  EXPECT_EQ(find("Stirrup").description, "An open link given by two points.");
}

}  // namespace
}  // namespace quorvan::tool
