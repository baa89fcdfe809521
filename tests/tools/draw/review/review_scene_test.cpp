// Two drawings over each other.
#include <tools/draw/review/review_scene.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include <tests/tools/drawn_elements.h>
#include <tests/tools/sample.h>
#include <tools/draw/scene/painted_box.h>

namespace quorvan::tool {

namespace {

using test::circleOf;
using test::lineOf;
using test::textOf;

Review reviewed(const std::string& before, const std::string& after) {
  std::ostringstream out;
  std::ostringstream err;
  Console console{out, err};
  test::writeFile("before.xml", test::documentOf(before));
  test::writeFile("after.xml", test::documentOf(after));
  const TransferFile old("before.xml", console);
  const TransferFile now("after.xml", console);
  return reviewOf(old, now, compareFiles(old, now, 0.001, console), {});
}

const std::string kFrame = lineOf({0, 0, 0}, {4000, 0, 0}) + lineOf({0, 2000, 0}, {4000, 2000, 0}) +
                           textOf({.contents = "Plan", .at = {100, 100, 0}, .height = 60});

// The circles of the review.
std::vector<Shape> circlesIn(const Review& review) {
  std::vector<Shape> circles;
  std::ranges::copy_if(review.scene.shapes, std::back_inserter(circles),
                       [](const Shape& shape) { return shape.kind == Shape::Kind::kCircle; });
  return circles;
}

TEST(ToolReview, TellsWhatWentFromWhatCameByItsLine) {
  const Review gone = reviewed(kFrame + circleOf({1000, 1000, 0}, 200), kFrame);
  const Review come = reviewed(kFrame, kFrame + circleOf({1000, 1000, 0}, 200));
  const Review same =
      reviewed(kFrame + circleOf({1000, 1000, 0}, 200), kFrame + circleOf({1000, 1000, 0}, 200));
  ASSERT_EQ(circlesIn(gone).size(), 1U);
  ASSERT_EQ(circlesIn(come).size(), 1U);
  ASSERT_EQ(circlesIn(same).size(), 1U);
  EXPECT_TRUE(circlesIn(gone)[0].style.isDashed);
  EXPECT_FALSE(circlesIn(come)[0].style.isDashed);
  EXPECT_GT(circlesIn(come)[0].style.width, 2.0 * circlesIn(same)[0].style.width);
  const std::set<std::string> colors = {webColor(circlesIn(gone)[0].style.color),
                                        webColor(circlesIn(come)[0].style.color),
                                        webColor(circlesIn(same)[0].style.color)};
  EXPECT_EQ(colors.size(), 3U);
  EXPECT_TRUE(same.notes.empty());
  EXPECT_EQ(gone.notes.at(0).heading, "1 \u2212");
  EXPECT_EQ(come.notes.at(0).heading, "1 +");
}

TEST(ToolReview, DrawsWhatWasMovedWhereItWasAndWhereItIs) {
  const Review review =
      reviewed(kFrame + circleOf({1000, 1000, 0}, 200), kFrame + circleOf({3000, 1000, 0}, 200));
  ASSERT_EQ(circlesIn(review).size(), 2U);
  EXPECT_TRUE(circlesIn(review)[0].style.isDashed);
  EXPECT_LT(circlesIn(review)[0].center.x, circlesIn(review)[1].center.x);
  ASSERT_EQ(review.notes.size(), 2U);
  EXPECT_EQ(review.notes[0].lines, review.notes[1].lines);
  EXPECT_EQ(
      review.notes[0].lines,
      std::vector<std::string>{"moved: Circle, at (1000, 1000, 0), radius 200, by (2000, 0, 0)"});
}

// A cloud has the element of what is in it, and lies around it, inside the sheet.
TEST(ToolReview, PutsACloudRoundEachPlaceThatChanged) {
  const Review review =
      reviewed(kFrame + circleOf({1000, 1000, 0}, 200),
               kFrame + circleOf({1000, 1000, 0}, 250) + circleOf({3000, 1000, 0}, 100));
  ASSERT_EQ(review.notes.size(), 2U);
  for (std::uint32_t note = 0; note < 2; ++note) {
    SheetBox cloud = SheetBox::none();
    SheetBox inside = SheetBox::none();
    for (const Shape& shape : review.scene.shapes) {
      if (shape.element == note) {
        (shape.layer == Layer::kMarks ? cloud : inside).include(paintedBox(shape));
      }
    }
    EXPECT_LT(cloud.least.x, inside.least.x);
    EXPECT_GT(cloud.most.y, inside.most.y);
    EXPECT_GT(cloud.least.x, 0.0);
    EXPECT_LT(cloud.most.x, review.scene.width);
  }
}

TEST(ToolReview, LaysADrawingThatWasMovedAsAWholeOverTheOldOne) {
  const auto drawing = [](double by, double radius) {
    return lineOf({by, 0, 0}, {by + 4000, 0, 0}) + lineOf({by, 0, 0}, {by, 2000, 0}) +
           textOf({.contents = "Plan", .at = {by, 100, 0}, .height = 60}) +
           textOf({.contents = "A", .at = {by, 300, 0}, .height = 60}) +
           circleOf({by + 1000, 1000, 0}, radius);
  };
  const Review review = reviewed(drawing(0, 200), drawing(50000, 250));
  EXPECT_EQ(std::ranges::count(review.lines, "moved: 4 elements, by (50000, 0, 0)"), 1);
  ASSERT_EQ(circlesIn(review).size(), 2U);
  EXPECT_NEAR(circlesIn(review)[0].center.x, circlesIn(review)[1].center.x, 1e-6);
  EXPECT_EQ(review.notes.size(), 1U);
}

TEST(ToolReview, ShowsAReplacedTextAloneAndStrikesADeletedOneThrough) {
  const auto texts = [](const Review& review) {
    return std::ranges::count_if(review.scene.shapes, [](const Shape& shape) {
      return shape.layer == Layer::kTexts && shape.element != kNoElement;
    });
  };
  const std::string before = textOf({.contents = "e=20", .at = {900, 900, 0}, .height = 60});
  const std::string after = textOf({.contents = "e=15", .at = {900, 900, 0}, .height = 60});
  EXPECT_EQ(texts(reviewed(kFrame + before, kFrame + after)), 1);
  EXPECT_EQ(texts(reviewed(kFrame + before, kFrame)), 2);
}

TEST(ToolReview, HasTheListBesideTheDrawing) {
  const Review review = reviewed(kFrame, kFrame + circleOf({1000, 1000, 0}, 200));
  const Scene scene = withList(review);
  EXPECT_GT(scene.width, review.scene.width);
  const auto line = std::ranges::find_if(scene.shapes, [](const Shape& shape) {
    return shape.lettering.text.starts_with("added: Circle, at (1000, 1000, 0)");
  });
  ASSERT_NE(line, scene.shapes.end());
  EXPECT_GT(line->lettering.at.x, review.scene.width);
  EXPECT_LT(paintedBox(*line).most.x, scene.width);
}

}  // namespace

}  // namespace quorvan::tool
