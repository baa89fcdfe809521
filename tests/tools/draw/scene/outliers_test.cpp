// What belongs together on a sheet.
#include <tools/draw/scene/outliers.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

namespace quorvan::tool {

namespace {

constexpr double kEndless = std::numeric_limits<double>::infinity();

using Places = std::vector<std::uint32_t>;

SheetBox square(double x, double y, double side) {
  return {{x, y}, {x + side, y + side}};
}

std::vector<ElementBox> numberedBoxes(const std::vector<SheetBox>& boxes) {
  std::vector<ElementBox> numbered;
  for (const SheetBox& box : boxes) {
    numbered.push_back({static_cast<std::uint32_t>(numbered.size()), box});
  }
  return numbered;
}

// A hundred boxes of 10 side by side, ten a row, 20 apart.
std::vector<SheetBox> hundred(double x = 0.0, double y = 0.0) {
  std::vector<SheetBox> boxes;
  for (int i = 0; i < 100; ++i) {
    const int row = i / 10;
    boxes.push_back(square(x + i % 10 * 20.0, y + row * 20.0, 10));
  }
  return boxes;
}

Places outliersOf(const std::vector<SheetBox>& boxes) {
  return belongsTogether(numberedBoxes(boxes)).outliers;
}

TEST(ToolOutliers, AreNoneInADrawingOfOnePiece) {
  const Belonging result = belongsTogether(numberedBoxes(hundred()));
  EXPECT_TRUE(result.outliers.empty());
  EXPECT_EQ(result.box.least, (PlanePoint{0, 0}));
  EXPECT_EQ(result.box.most, (PlanePoint{190, 190}));
}

TEST(ToolOutliers, AreNoneInNothing) {
  const Belonging result = belongsTogether({});
  EXPECT_TRUE(result.outliers.empty());
  EXPECT_TRUE(result.box.isEmpty());
}

TEST(ToolOutliers, LieFarOnAnySide) {
  for (const PlanePoint away : {PlanePoint{1e5, 0}, PlanePoint{-1e5, 0}, PlanePoint{0, 1e5},
                                PlanePoint{0, -1e5}, PlanePoint{-1e5, 1e5}, PlanePoint{1e12, 3}}) {
    std::vector<SheetBox> boxes = hundred();
    boxes.push_back(square(away.x, away.y, 10));
    const Belonging result = belongsTogether(numberedBoxes(boxes));
    EXPECT_EQ(result.outliers, Places{100}) << away.x << ' ' << away.y;
    EXPECT_EQ(result.box.most, (PlanePoint{190, 190}));
  }
}

// The drawing without its first and last tenth is 170 by 190 large, 255 from corner to corner:
// five times that is the gap beyond which something lies far.
TEST(ToolOutliers, LieMoreThanFiveTimesTheSizeAway) {
  std::vector<SheetBox> boxes = hundred();
  boxes.push_back(square(190 + 1100, 0, 10));
  EXPECT_TRUE(outliersOf(boxes).empty());
  boxes.back() = square(190 + 1500, 0, 10);
  EXPECT_EQ(outliersOf(boxes), Places{100});
}

TEST(ToolOutliers, AreFewAmongMany) {
  std::vector<SheetBox> boxes = hundred();
  for (int i = 0; i < 9; ++i) {
    boxes.push_back(square(1e6 + 20 * i, 0, 10));
  }
  EXPECT_EQ(outliersOf(boxes).size(), 9U);
  for (int i = 0; i < 4; ++i) {
    boxes.push_back(square(1e6 + 20 * i, 50, 10));
  }
  EXPECT_TRUE(outliersOf(boxes).empty()) << "a view with more than a tenth of the elements";
}

TEST(ToolOutliers, AreMuchLargerThanAllTheOthers) {
  std::vector<SheetBox> boxes = hundred();
  boxes.insert(boxes.begin(), SheetBox{{-3.5e15, 50}, {100, 50}});
  const Belonging result = belongsTogether(numberedBoxes(boxes));
  EXPECT_EQ(result.outliers, Places{0});
  EXPECT_EQ(result.box.least, (PlanePoint{0, 0}));
}

TEST(ToolOutliers, AreNotWhatSurroundsTheRest) {
  for (const double around : {20.0, 300.0, 2000.0}) {
    std::vector<SheetBox> boxes = hundred();
    boxes.push_back(SheetBox{{-around, -around}, {190 + around, 190 + around}});
    const Belonging result = belongsTogether(numberedBoxes(boxes));
    EXPECT_TRUE(result.outliers.empty()) << around;
    EXPECT_EQ(result.box.least, (PlanePoint{-around, -around}));
  }
}

// Of seven as of a hundred: what lies as far as rounding noise throws it leaves nothing to be seen.
TEST(ToolOutliers, AreUpToHalfOfAllWhereTheRestIsNothingBesideTheirDistance) {
  for (const double away : {-3.5e15, 1e10, 8e22}) {
    std::vector<SheetBox> boxes;
    for (int i = 0; i < 5; ++i) {
      boxes.push_back(square(i * 20.0, 0, 10));
    }
    boxes.push_back(square(away, away, 30));
    boxes.push_back(square(away, 5, 30));
    EXPECT_EQ(outliersOf(boxes), (Places{5, 6})) << away;
    // And lines to there.
    boxes.push_back({{std::min(0.0, away), 0}, {std::max(0.0, away), 90}});
    boxes.push_back({{std::min(0.0, 2.0 * away), 0}, {std::max(0.0, 2.0 * away), 90}});
    EXPECT_EQ(outliersOf(boxes), (Places{5, 6, 7, 8})) << away;
  }
  std::vector<SheetBox> apart{square(0, 0, 10), square(20, 0, 10), square(1e9, 0, 10)};
  apart.push_back(square(1e9, 20, 10));
  EXPECT_EQ(outliersOf(apart), Places()) << "two halves";
}

TEST(ToolOutliers, AreNotJudgedAmongThree) {
  EXPECT_TRUE(outliersOf({square(0, 0, 10), square(5e4, 0, 10), square(0, 20, 10)}).empty());
  EXPECT_EQ(
      outliersOf({square(0, 0, 10), square(0, 20, 10), square(0, 40, 10), square(5e4, 0, 10)}),
      Places{3});
}

TEST(ToolOutliers, HaveNoPlaceOrSizeThatIsANumber) {
  std::vector<SheetBox> boxes = hundred();
  boxes[4] = {{0, 0}, {kEndless, 10}};
  boxes[7] = {{-kEndless, -kEndless}, {-kEndless, -kEndless}};
  boxes[9] = {{0, 0}, {std::numeric_limits<double>::quiet_NaN(), 10}};
  const Belonging result = belongsTogether(numberedBoxes(boxes));
  EXPECT_EQ(result.outliers, (Places{4, 7, 9}));
  EXPECT_EQ(result.box.most, (PlanePoint{190, 190}));
}

TEST(ToolOutliers, AreNoneAmongPointsAtOnePlace) {
  EXPECT_TRUE(outliersOf(std::vector<SheetBox>(20, square(5, 5, 0))).empty());
}

// Wherever the drawing lies and however large it is, the same elements are left out.
TEST(ToolOutliers, AreTheSameAtAnyPlaceAndSize) {
  std::mt19937 random(72);
  const auto number = [&](int most) { return static_cast<double>(random() % 1000) / 1000 * most; };
  for (int round = 0; round < 40; ++round) {
    std::vector<SheetBox> boxes;
    for (int i = 0; i < 60; ++i) {
      boxes.push_back(square(number(4000), number(2000), number(150)));
    }
    for (int i = 0; i < round % 6; ++i) {
      boxes[random() % boxes.size()] = square(number(4000) + 3e6 * (i + 1), number(10), 30);
    }
    const Places expected = outliersOf(boxes);
    for (const double factor : {1e-3, 1e3}) {
      std::vector<SheetBox> moved;
      for (const SheetBox& box : boxes) {
        const PlanePoint by{-7e4 * factor, 3e4 * factor};
        moved.push_back({box.least * factor + by, box.most * factor + by});
      }
      EXPECT_EQ(outliersOf(moved), expected) << "round " << round << ", factor " << factor;
    }
    // What is kept lies in the box.
    const Belonging result = belongsTogether(numberedBoxes(boxes));
    for (std::uint32_t i = 0; i < boxes.size(); ++i) {
      if (std::ranges::find(expected, i) == expected.end()) {
        EXPECT_LE(result.box.least.x, boxes[i].least.x);
        EXPECT_GE(result.box.most.y, boxes[i].most.y);
      }
    }
  }
}

// The order of the elements says nothing of where they lie.
TEST(ToolOutliers, AreTheSameInAnyOrder) {
  std::vector<ElementBox> boxes = numberedBoxes(hundred());
  boxes.push_back({100, square(1e7, -1e7, 4)});
  boxes.push_back({101, square(-1e9, 0, 4)});
  boxes.push_back({102, {{-1e14, 0}, {1e14, 0}}});
  std::mt19937 random(73);
  for (int round = 0; round < 10; ++round) {
    std::ranges::shuffle(boxes, random);
    EXPECT_EQ(belongsTogether(boxes).outliers, (Places{100, 101, 102}));
  }
}

}  // namespace

}  // namespace quorvan::tool
