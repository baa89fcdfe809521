// Lines of text to the right of a drawing.
#include <tools/draw/review/list_columns.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tools/draw/scene/text_width.h>

namespace {

using quorvan::tool::ListColumns;
using quorvan::tool::Scene;
using quorvan::tool::Shape;
using quorvan::tool::textWidth;

constexpr double kLettering = 2.0;  // mm
constexpr double kColumn = 120.0;

Scene sheet(double height) {
  Scene scene;
  scene.width = 210.0;
  scene.height = height;
  return scene;
}

std::vector<std::string> textsOf(const Scene& scene) {
  std::vector<std::string> texts;
  for (const Shape& shape : scene.shapes) {
    texts.push_back(shape.lettering.text);
  }
  return texts;
}

std::string numbered(std::size_t number) {
  return "line " + std::to_string(number);
}

}  // namespace

TEST(ListColumns, StandToTheRightOfTheDrawingWhichTheyWiden) {
  Scene scene = sheet(297.0);
  ListColumns columns(scene);
  columns.add("first", {});
  columns.add("second", {1, 2, 3}, 7);
  ASSERT_EQ(scene.shapes.size(), 2U);
  EXPECT_GT(scene.shapes[0].lettering.at.x, 210.0);
  EXPECT_LT(scene.shapes[1].lettering.at.y, scene.shapes[0].lettering.at.y);
  EXPECT_EQ(scene.shapes[1].element, 7U);
  EXPECT_EQ(scene.shapes[0].element, quorvan::tool::kNoElement);
  EXPECT_GT(scene.width, 210.0 + kColumn);
  EXPECT_LT(scene.width, 210.0 + kColumn + 10.0);
}

TEST(ListColumns, BreakALongLineBetweenWordsAndIndentWhatFollows) {
  Scene scene = sheet(297.0);
  std::string line = "  two blanks before";
  for (int i = 0; i < 40; ++i) {
    line += " reinforcement";
  }
  ListColumns(scene).add(line, {});
  ASSERT_GT(scene.shapes.size(), 3U);
  std::string joined;
  for (const Shape& shape : scene.shapes) {
    EXPECT_LE(shape.lettering.at.x + textWidth(shape.lettering.text, kLettering), scene.width);
    joined += (joined.empty() ? "" : " ") + shape.lettering.text;
  }
  EXPECT_EQ("  " + joined, line);
  EXPECT_EQ(scene.shapes[1].lettering.at.x, scene.shapes[0].lettering.at.x + 4.0);
  EXPECT_EQ(scene.shapes[2].lettering.at.x, scene.shapes[1].lettering.at.x);
}

TEST(ListColumns, KeepAWordWholeThatIsWiderThanAColumn) {
  Scene scene = sheet(297.0);
  const std::string word(300, 'w');
  ListColumns(scene).add("a " + word + " b", {});
  EXPECT_EQ(textsOf(scene), (std::vector<std::string>{"a", word, "b"}));
}

TEST(ListColumns, BeginANewColumnWhereTheSheetEnds) {
  Scene scene = sheet(60.0);
  ListColumns columns(scene);
  while (scene.shapes.empty() ||
         scene.shapes.back().lettering.at.x == scene.shapes.front().lettering.at.x) {
    columns.add(numbered(scene.shapes.size()), {});
  }
  EXPECT_EQ(scene.shapes.back().lettering.at.x, scene.shapes.front().lettering.at.x + kColumn);
  EXPECT_EQ(scene.shapes.back().lettering.at.y, scene.shapes.front().lettering.at.y);
  EXPECT_GT(scene.shapes[scene.shapes.size() - 2].lettering.at.y, 0.0);
}

TEST(ListColumns, SayHowManyLinesThereIsNoRoomFor) {
  constexpr std::size_t kLines = 300;
  Scene scene = sheet(60.0);
  ListColumns columns(scene);
  for (std::size_t i = 0; i < kLines; ++i) {
    columns.add(numbered(i), {}, static_cast<std::uint32_t>(i));
  }
  const std::size_t shown = scene.shapes.size() - 1;
  EXPECT_EQ(scene.shapes[shown - 1].lettering.text, numbered(shown - 1));
  EXPECT_EQ(scene.shapes[shown].lettering.text,
            "\u2026 " + std::to_string(kLines - shown) + " more lines");
  EXPECT_EQ(scene.shapes[shown].element, quorvan::tool::kNoElement);
  EXPECT_LT(scene.width, 210.0 + 8 * kColumn + 10.0);
}
