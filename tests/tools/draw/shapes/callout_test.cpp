// Where a text with a leader finds its place.
#include <tools/draw/shapes/callout.h>

#include <gtest/gtest.h>

#include <random>

#include <tools/draw/scene/text_width.h>

namespace quorvan::tool {

namespace {

constexpr double kLetters = 2.5;
constexpr SheetBox kRoom{{5, 5}, {195, 145}};

Callout calloutAt(PlanePoint anchor) {
  Callout callout;
  callout.mark = "12";
  callout.text = "12 H16-05-200";
  callout.anchors = {anchor};
  return callout;
}

// The letters beside the bubble.
SheetBox lettersAt(const CalloutPlace& place) {
  return {{place.text.x, place.text.y - kLetters / 2.0},
          {place.text.x + textWidth("12 H16-05-200", kLetters), place.text.y + kLetters / 2.0}};
}

bool runsThrough(const SheetBox& box, PlanePoint from, PlanePoint to) {
  for (int i = 0; i <= 2000; ++i) {
    const PlanePoint at = from + (to - from) * (i / 2000.0);
    if (at.x > box.least.x && at.x < box.most.x && at.y > box.least.y && at.y < box.most.y) {
      return true;
    }
  }
  return false;
}

TEST(ToolCallout, StandsBesideItsAnchorOnAnEmptySheet) {
  const Occupancy empty(200, 150);
  const CalloutPlace place = placeOf(calloutAt({100, 75}), kLetters, kRoom, empty, false);
  EXPECT_EQ(place.anchor, (PlanePoint{100, 75}));
  EXPECT_LT(lengthOf(place.leaderEnd - place.anchor), 10.0);
  EXPECT_GT(place.box.width(), textWidth("12 H16-05-200", kLetters));
  EXPECT_GE(place.radius, textWidth("12", kLetters) / 2.0);
}

TEST(ToolCallout, StaysInItsRoomWhereverItsAnchorLies) {
  const Occupancy empty(200, 150);
  for (const PlanePoint anchor :
       {PlanePoint{5, 5}, PlanePoint{195, 5}, PlanePoint{5, 145}, PlanePoint{195, 145}}) {
    for (const bool isQuick : {false, true}) {
      const CalloutPlace place = placeOf(calloutAt(anchor), kLetters, kRoom, empty, isQuick);
      EXPECT_GE(place.box.least.x, kRoom.least.x - 1e-9);
      EXPECT_GE(place.box.least.y, kRoom.least.y - 1e-9);
      EXPECT_LE(place.box.most.x, kRoom.most.x + 1e-9);
      EXPECT_LE(place.box.most.y, kRoom.most.y + 1e-9);
    }
  }
}

TEST(ToolCallout, CoversNothingWhereThereIsRoom) {
  std::mt19937 random(131);
  for (int round = 0; round < 60; ++round) {
    Occupancy taken(200, 150);
    std::vector<SheetBox> boxes;
    for (int i = 0; i < 6; ++i) {
      const PlanePoint at{60.0 + static_cast<double>(random() % 80),
                          50.0 + static_cast<double>(random() % 50)};
      boxes.push_back({at, at + PlanePoint{15, 6}});
      taken.take(boxes.back(), Occupancy::Kind::kText);
    }
    const CalloutPlace place = placeOf(calloutAt({100, 75}), kLetters, kRoom, taken, false);
    for (const SheetBox& box : boxes) {
      EXPECT_FALSE(box.meets(place.box)) << round;
    }
  }
}

// Above all it covers no text; a line costs less, concrete least.
TEST(ToolCallout, CoversConcreteRatherThanLinesAndLinesRatherThanTexts) {
  const std::pair<Occupancy::Kind, Occupancy::Kind> cases[] = {
      {Occupancy::Kind::kText, Occupancy::Kind::kLine},
      {Occupancy::Kind::kLine, Occupancy::Kind::kConcrete}};
  for (const auto& [worse, better] : cases) {
    Occupancy taken(200, 150);
    taken.take(SheetBox{{0, 0}, {200, 74}}, worse);
    taken.take(SheetBox{{0, 76}, {200, 150}}, better);
    const CalloutPlace place = placeOf(calloutAt({100, 75}), kLetters, kRoom, taken, false);
    EXPECT_GT(place.box.center().y, 75.0);
  }
}

TEST(ToolCallout, HasNoBubbleWithoutAMarkAndNoTextWithoutOne) {
  const Occupancy empty(200, 150);
  Callout callout = calloutAt({100, 75});
  callout.mark.clear();
  const CalloutPlace bare = placeOf(callout, kLetters, kRoom, empty, false);
  EXPECT_EQ(bare.radius, 0.0);
  EXPECT_LT(bare.text.x - bare.box.least.x, kLetters);
  callout = calloutAt({100, 75});
  callout.text.clear();
  const CalloutPlace bubble = placeOf(callout, kLetters, kRoom, empty, false);
  EXPECT_NEAR(bubble.box.width(), 2.0 * bubble.radius, 1e-9);
  EXPECT_NEAR(lengthOf(bubble.leaderEnd - bubble.bubble), bubble.radius, 1e-9);
}

TEST(ToolCallout, TakesTheAnchorThatHasRoom) {
  Occupancy taken(200, 150);
  taken.take(SheetBox{{0, 0}, {120, 150}}, Occupancy::Kind::kText);
  Callout callout = calloutAt({30, 75});
  callout.anchors.push_back({150, 75});
  EXPECT_EQ(placeOf(callout, kLetters, kRoom, taken, false).anchor, (PlanePoint{150, 75}));
}

// A callout to the left of its bar has its words between the bar and the bubble.
TEST(ToolCallout, HasALeaderThatEndsBeforeItsOwnText) {
  std::mt19937 random(132);
  int leaders = 0;
  for (int round = 0; round < 200; ++round) {
    Occupancy taken(200, 150);
    for (int i = 0; i < 8; ++i) {
      const PlanePoint at{static_cast<double>(random() % 180), static_cast<double>(random() % 140)};
      taken.take(SheetBox{at, at + PlanePoint{40, 9}}, Occupancy::Kind::kText);
    }
    const PlanePoint anchor{20.0 + static_cast<double>(random() % 160),
                            20.0 + static_cast<double>(random() % 110)};
    Callout callout = calloutAt(anchor);
    if (round % 3 == 0) {
      callout.mark.clear();
    }
    const CalloutPlace place = placeOf(callout, kLetters, kRoom, taken, round % 2 == 0);
    const SheetBox letters = lettersAt(place).grown(0.2 * kLetters);
    if (runsThrough(letters, anchor, anchor)) {
      continue;  // where there is room nowhere else, a callout covers what it names
    }
    ++leaders;
    EXPECT_FALSE(runsThrough(letters, anchor, place.leaderEnd))
        << anchor.x << ' ' << anchor.y << " to " << place.leaderEnd.x << ' ' << place.leaderEnd.y;
  }
  EXPECT_GT(leaders, 180);
}

// A text between the bar and the nearest free place is gone round.
TEST(ToolCallout, HasALeaderThatRunsThroughNoOtherText) {
  std::mt19937 random(133);
  for (int round = 0; round < 60; ++round) {
    Occupancy taken(200, 150);
    std::vector<SheetBox> texts;
    for (int i = 0; i < 3; ++i) {
      const PlanePoint at{80.0 + static_cast<double>(random() % 20),
                          60.0 + 12.0 * static_cast<double>(i) - (i == 1 ? 20.0 : 0.0)};
      texts.push_back({at, at + PlanePoint{20, 2.5}});
      taken.take(texts.back(), Occupancy::Kind::kText);
    }
    const CalloutPlace place = placeOf(calloutAt({100, 70}), kLetters, kRoom, taken, false);
    for (const SheetBox& text : texts) {
      EXPECT_FALSE(runsThrough(text, place.anchor, place.leaderEnd)) << round;
    }
  }
}

}  // namespace

}  // namespace quorvan::tool
