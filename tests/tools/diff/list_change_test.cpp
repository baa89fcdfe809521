// What a revision changes in the bar list.
#include <tools/diff/list_change.h>

#include <gtest/gtest.h>

#include <sstream>

#include <tests/tools/drawn_elements.h>
#include <tests/tools/sample.h>

namespace quorvan::tool {

namespace {

using Lines = std::vector<std::string>;

TransferFile listedFile(const std::string& name, const std::string& elements) {
  std::ostringstream out;
  std::ostringstream err;
  Console console{out, err};
  test::writeFile(name, test::documentOf(elements));
  return TransferFile(name, console);
}

Lines changesFrom(const std::string& before, const std::string& after) {
  return listChanges(listedFile("before.xml", before), listedFile("after.xml", after),
                     *kLengthUnits);
}

std::string markedBar(long mark, double length, double diameter = 16) {
  return test::barOf({.points = {{0, 0, 0}, {length, 0, 0}}, .diameter = diameter, .mark = mark});
}

TEST(ToolListChange, IsNoneForTheSameBars) {
  EXPECT_EQ(changesFrom(markedBar(1, 1000), markedBar(1, 1000)), Lines{});
}

TEST(ToolListChange, SaysNumberDiameterLengthAndMass) {
  EXPECT_EQ(changesFrom(markedBar(10, 1000), markedBar(10, 1000) + markedBar(10, 1000)),
            (Lines{"mark 10: 1 \u2192 2 bars, +1.6 kg", "all bars: 1.6 \u2192 3.2 kg"}));
  EXPECT_EQ(
      changesFrom(markedBar(3, 2000), markedBar(3, 1000)),
      (Lines{"mark 3: length 2000 \u2192 1000, \u22121.6 kg", "all bars: 3.2 \u2192 1.6 kg"}));
  EXPECT_EQ(changesFrom(markedBar(3, 10), markedBar(3, 10, 12)),
            Lines{"mark 3: diameter 16 \u2192 12"});
}

TEST(ToolListChange, SaysWhichMarksAreNewAndGone) {
  EXPECT_EQ(
      changesFrom(markedBar(7, 1000), markedBar(8, 1000)),
      (Lines{"mark 7: gone, 1 bar, \u22121.6 kg", "mark 8: new, 1 bar, diameter 16, +1.6 kg"}));
}

}  // namespace

}  // namespace quorvan::tool
