#include <gtest/gtest.h>

#include <random>
#include <set>

#include <tools/check/index_runs.h>

namespace {

using quorvan::tool::IndexRuns;

TEST(ToolIndexRuns, TellWhatIsThereAlready) {
  std::mt19937 random(6);
  for (const int range : {1, 5, 40, 1000}) {
    IndexRuns runs;
    std::set<int> seen;
    for (int i = 0; i < 500; ++i) {
      const int index = static_cast<int>(random() % static_cast<unsigned>(range)) - range / 2;
      ASSERT_EQ(runs.add(index), seen.insert(index).second) << index;
    }
  }
}

TEST(ToolIndexRuns, HoldNumbersThatFollowEachOtherAndThatComeBackwards) {
  IndexRuns runs;
  for (int i = 1; i <= 1000; ++i) {
    EXPECT_TRUE(runs.add(i));
    EXPECT_TRUE(runs.add(-i));
  }
  EXPECT_TRUE(runs.add(0));
  for (int i = -1000; i <= 1000; ++i) {
    EXPECT_FALSE(runs.add(i));
  }
}

}  // namespace
