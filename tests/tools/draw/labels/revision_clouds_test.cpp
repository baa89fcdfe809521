#include <tools/draw/labels/revision_clouds.h>

#include <gtest/gtest.h>

#include <tools/draw/scene/painted_box.h>

namespace quorvan::tool {

namespace {

SheetBox squareAt(double x, double y, double side = 2.0) {
  return {{x, y}, {x + side, y + side}};
}

TEST(ToolRevisionClouds, JoinWhatLiesTogether) {
  const auto groups = groupsOfBoxes({squareAt(50, 0), squareAt(0, 0), squareAt(53, 1)});
  ASSERT_EQ(groups.size(), 2U);
  EXPECT_EQ(groups[0].members, std::vector<std::size_t>{1});
  EXPECT_EQ(groups[1].members, (std::vector<std::size_t>{0, 2}));
  EXPECT_EQ(groups[1].box.least, (PlanePoint{50, 0}));
  EXPECT_EQ(groups[1].box.most, (PlanePoint{55, 3}));
}

TEST(ToolRevisionClouds, JoinWhatABoxBetweenThemBringsTogether) {
  EXPECT_EQ(groupsOfBoxes({squareAt(0, 0), squareAt(20, 0), squareAt(3, 0, 16)}).size(), 1U);
}

TEST(ToolRevisionClouds, StayFewHoweverManyChangesThereAre) {
  std::vector<SheetBox> boxes;
  for (int x = 0; x < 40; ++x) {
    for (int y = 0; y < 40; ++y) {
      boxes.push_back(squareAt(20.0 * x, 20.0 * y));
    }
  }
  const auto groups = groupsOfBoxes(boxes);
  EXPECT_LE(groups.size(), 300U);
  std::size_t members = 0;
  for (const CloudGroup& group : groups) {
    members += group.members.size();
  }
  EXPECT_EQ(members, boxes.size());
}

TEST(ToolRevisionClouds, GoRoundTheirBox) {
  const SheetBox box = squareAt(10, 20, 30);
  const SheetBox cloud = boxOf(cloudAround(box));
  EXPECT_LT(cloud.least.x, box.least.x - 2.0);
  EXPECT_LT(cloud.least.y, box.least.y - 2.0);
  EXPECT_GT(cloud.most.x, box.most.x + 2.0);
  EXPECT_GT(cloud.most.y, box.most.y + 2.0);
  EXPECT_TRUE(cloudAround({{5, 5}, {5, 5}}).isFinite());
}

}  // namespace

}  // namespace quorvan::tool
