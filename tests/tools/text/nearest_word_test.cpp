#include <tools/text/nearest_word.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quorvan::tool {

namespace {

// Letters put in, taken out, changed or exchanged with their neighbour, in either case.
TEST(ToolNearestWord, TakesAThirdOfItsLettersForMistakesAtMost) {
  const std::vector<std::string> words = {"bars", "check", "draw", "info", "list", "write"};
  const std::pair<const char*, const char*> cases[] = {
      {"bar", "bars"},    {"bras", "bars"},    {"barss", "bars"},  {"chekc", "check"},
      {"chck", "check"},  {"chick", "check"},  {"xheck", "check"}, {"drw", "draw"},
      {"wriet", "write"}, {"writ", "write"},   {"lst", "list"},    {"check", "check"},
      {"", ""},           {"zzzz", ""},        {"infoo", "info"},  {"in", ""},
      {"INFO", "info"},   {"chkeck", "check"}, {"hcekc", ""},      {"sbar", ""},
  };
  for (const auto& [typed, word] : cases) {
    EXPECT_EQ(nearestWord(typed, words), word) << typed;
  }
  EXPECT_EQ(nearestWord("bars", {}), "");
}

TEST(ToolNearestWord, IsTheNearestOfSeveral) {
  const std::vector<std::string> words = {"--tolerances", "--tolerance", "--toleranze"};
  EXPECT_EQ(nearestWord("--tolerence", words), "--tolerance");
  EXPECT_EQ(nearestWord("--tolerances", words), "--tolerances");
}

}  // namespace

}  // namespace quorvan::tool
