#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>

#include <tools/model/list_entries.h>

namespace {

using quorvan::tool::DocumentTree;
using quorvan::tool::ListEntries;
using quorvan::tool::ListEntry;
using quorvan::tool::Position;
using quorvan::tool::TagCopy;

// A list with children of these names; the value of each tells its place.
DocumentTree entryList(const std::vector<std::string>& names) {
  DocumentTree tree;
  TagCopy tag;
  tree.begin("Vector", tag, Position());
  for (std::size_t i = 0; i < names.size(); ++i) {
    tag.clear();
    tag.add("place", std::to_string(i));
    tree.begin(names[i], tag, Position());
    tree.end();
  }
  return tree;
}

// "1@0 2@3": the numbers of the entries and their places.
std::string toldEntries(const DocumentTree& tree, const ListEntries& entries) {
  std::string text;
  for (const ListEntry& entry : entries.all()) {
    text += (text.empty() ? "" : " ") + std::to_string(entry.number) + '@' +
            std::string(*tree.attribute(*entry.node, "place"));
  }
  return text;
}

std::string entriesIn(const std::vector<std::string>& names, const std::string& stem) {
  const DocumentTree tree = entryList(names);
  return toldEntries(tree, ListEntries(tree, tree.root(), stem));
}

bool isGaplessWith(const std::vector<std::string>& names) {
  const DocumentTree tree = entryList(names);
  return ListEntries(tree, tree.root(), "P").isGapless();
}

TEST(ToolListEntries, AreTheChildrenOfTheStemWithANumber) {
  EXPECT_EQ(
      entriesIn({"Point1", "Bulge1", "Point2", "#comment", "Point", "Point0", "Point03"}, "Point"),
      "1@0 2@2");
  EXPECT_EQ(entriesIn({"Point1", "Bulge1", "Point2"}, "Bulge"), "1@1");
  EXPECT_EQ(entriesIn({}, "Point"), "");
}

TEST(ToolListEntries, AreNoneForAnEmptyStem) {
  EXPECT_EQ(entriesIn({"1", "2"}, ""), "");
}

TEST(ToolListEntries, StandByTheirNumbersAndNotTheirPlaces) {
  EXPECT_EQ(entriesIn({"P10", "P2", "P1"}, "P"), "1@2 2@1 10@0");
}

TEST(ToolListEntries, AreTheFirstOfEachNumber) {
  EXPECT_EQ(entriesIn({"P1", "P2", "P1", "P2"}, "P"), "1@0 2@1");
  EXPECT_EQ(entriesIn({"P2", "P1", "P2", "P1"}, "P"), "1@1 2@0");
}

TEST(ToolListEntries, AreGaplessFromOneToTheirCount) {
  EXPECT_TRUE(isGaplessWith({}));
  EXPECT_TRUE(isGaplessWith({"P1"}));
  EXPECT_TRUE(isGaplessWith({"P3", "P1", "P2"}));
  EXPECT_TRUE(isGaplessWith({"P1", "P2", "P2"}));
  EXPECT_FALSE(isGaplessWith({"P2"}));
  EXPECT_FALSE(isGaplessWith({"P1", "P3"}));
  EXPECT_FALSE(isGaplessWith({"P1", "P4294967295"}));
}

TEST(ToolListEntries, EndAtTheCountThatIsAnnounced) {
  const DocumentTree tree = entryList({"P1", "P2", "P5"});
  for (const auto& [count, expected] : {std::pair<std::int64_t, std::string>{-1, ""},
                                        {0, ""},
                                        {1, "1@0"},
                                        {2, "1@0 2@1"},
                                        {4, "1@0 2@1"},
                                        {5, "1@0 2@1 5@2"},
                                        {2147483647, "1@0 2@1 5@2"}}) {
    ListEntries entries(tree, tree.root(), "P");
    entries.limit(count);
    EXPECT_EQ(toldEntries(tree, entries), expected) << count;
  }
}

TEST(ToolListEntries, DoNotDependOnTheOrderInTheFile) {
  std::mt19937 random(14);
  for (int round = 0; round < 200; ++round) {
    std::vector<std::uint32_t> numbers(random() % 40);
    std::iota(numbers.begin(), numbers.end(), 1U);
    std::shuffle(numbers.begin(), numbers.end(), random);
    std::vector<std::string> names;
    for (const std::uint32_t number : numbers) {
      names.push_back("P" + std::to_string(number));
    }
    const DocumentTree tree = entryList(names);
    const ListEntries entries(tree, tree.root(), "P");
    ASSERT_EQ(entries.all().size(), numbers.size());
    EXPECT_TRUE(entries.isGapless());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      EXPECT_EQ(entries.all()[i].number, i + 1);
      EXPECT_EQ(tree.name(*entries.all()[i].node), "P" + std::to_string(i + 1));
    }
  }
}

}  // namespace
