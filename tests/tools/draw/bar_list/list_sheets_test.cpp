// The sheets of a bar list: where its rows, their rules and their sketches lie.
#include <tools/draw/bar_list/list_sheets.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include <tests/tools/schedule/listed_bars.h>
#include <tools/draw/scene/painted_box.h>

namespace quorvan::tool {

namespace {

using test::barAlongX;
using test::ListedBars;

// The boxes of the lines of one page: the rules of the table, which are thin and grey, and what the
// sketches draw.
struct PageLines {
  std::vector<SheetBox> rules;
  std::vector<SheetBox> sketches;

  explicit PageLines(const Scene& page) {
    constexpr double kThin = 0.2;
    for (const Shape& shape : page.shapes) {
      if (shape.kind == Shape::Kind::kPath) {
        auto& lines = shape.style.width < kThin && shape.style.color.red > 0 ? rules : sketches;
        lines.push_back(boxOf(shape.path));
      }
    }
  }
};

std::string bars(int count) {
  std::string all;
  for (int i = 1; i <= count; ++i) {
    all += barAlongX(i, 1000.0 * i, 10.0, i);
  }
  return all;
}

TEST(ToolListSheets, RulesReachToTheEndOfTheSketches) {
  const ListedBars listed(bars(3));
  const std::vector<Scene> pages = listSheets(listed.list(), {});
  ASSERT_EQ(pages.size(), 1U);
  const PageLines lines(pages.front());
  ASSERT_EQ(lines.sketches.size(), 3U);
  ASSERT_GE(lines.rules.size(), 4U);
  for (std::size_t row = 0; row < 3; ++row) {
    const SheetBox& above = lines.rules[row];
    const SheetBox& below = lines.rules[row + 1];
    const SheetBox& sketch = lines.sketches[row];
    EXPECT_LT(sketch.most.x, below.most.x) << row;
    EXPECT_GT(sketch.least.x, below.least.x) << row;
    EXPECT_LT(sketch.most.y, above.least.y) << row;
    EXPECT_GT(sketch.least.y, below.most.y) << row;
    EXPECT_LE(below.most.x, pages.front().width - below.least.x) << row;
  }
}

TEST(ToolListSheets, ListsThatAreLongGoOnOnAnotherPageUnderTheSameHead) {
  const ListedBars listed(bars(9));
  const std::vector<Scene> pages = listSheets(listed.list(), {});
  ASSERT_GE(pages.size(), 2U);
  std::size_t sketches = 0;
  for (const Scene& page : pages) {
    const std::size_t drawn = PageLines(page).sketches.size();
    sketches += drawn;
    const auto hasHead = std::ranges::any_of(page.shapes, [](const Shape& shape) {
      return shape.kind == Shape::Kind::kText && shape.lettering.text == "mark";
    });
    EXPECT_TRUE(drawn == 0 || hasHead);
  }
  EXPECT_EQ(sketches, 9U);
}

}  // namespace

}  // namespace quorvan::tool
