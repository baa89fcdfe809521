#include <tools/draw/shapes/callout.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include <tools/draw/scene/text_width.h>

namespace quorvan::tool {

namespace {

constexpr double kRings[] = {1.8, 3.0, 4.5, 6.5, 9.0, 12.5, 17.0, 23.0, 32.0};  // heights away
constexpr int kDirections = 16;
constexpr int kFewDirections = 4;
constexpr double kAwayShare = 0.3;
constexpr double kToText = 3.0;  // heights more: a leader to the text is worse than to the bubble
// Of two places that differ by no more, the first is taken: the last digits differ between systems.
constexpr double kAsGood = 1e-6;
constexpr double kBesideText = 0.95;  // heights: a leader ends so far from the middle of the text
constexpr double kBeforeText = 0.3;   // heights: and so far from either end of it

struct CalloutSize {
  double radius;
  double width;
  double height;
};

CalloutSize calloutSize(const Callout& callout, double lettering) {
  const double bubble =
      callout.mark.empty()
          ? 0.0
          : std::max(1.1 * lettering, 0.3 * lettering + textWidth(callout.mark, lettering) / 2.0);
  const double text = callout.text.empty()
                          ? 0.0
                          : textWidth(callout.text, lettering) + 2.0 * kBeforeText * lettering;
  return {bubble, 2.0 * bubble + text, std::max(2.0 * bubble, 2.0 * kBesideText * lettering)};
}

// The box of that size beyond the anchor, moved into the room.
SheetBox boxAt(PlanePoint anchor, PlanePoint direction, double away, const CalloutSize& size,
               const SheetBox& room) {
  PlanePoint center = anchor + direction * away +
                      PlanePoint{direction.x * size.width / 2.0, direction.y * size.height / 2.0};
  const auto within = [](double at, double half, double least, double most) {
    return most - least > 2.0 * half ? std::clamp(at, least + half, most - half)
                                     : (least + most) / 2.0;
  };
  center.x = within(center.x, size.width / 2.0, room.least.x, room.most.x);
  center.y = within(center.y, size.height / 2.0, room.least.y, room.most.y);
  const PlanePoint half{size.width / 2.0, size.height / 2.0};
  return {center - half, center + half};
}

// Whether a leader to the bubble would run through the text beside it.
bool crossesText(const CalloutPlace& place, double lettering) {
  const PlanePoint way = place.anchor - place.bubble;
  return place.box.most.x > place.text.x && place.anchor.x > place.text.x &&
         std::abs(way.y) * (place.text.x - place.bubble.x) < kBesideText * lettering * way.x;
}

CalloutPlace placeIn(const SheetBox& box, PlanePoint anchor, const CalloutSize& size,
                     double lettering) {
  CalloutPlace place;
  place.anchor = anchor;
  place.box = box;
  place.radius = size.radius;
  place.bubble = {box.least.x + size.radius, box.center().y};
  place.text = {box.least.x + 2.0 * size.radius + kBeforeText * lettering, box.center().y};
  if (size.radius > 0.0 && crossesText(place, lettering)) {
    const double beside = kBesideText * lettering;
    place.leaderEnd = {std::clamp(anchor.x, place.text.x, box.most.x),
                       std::clamp(anchor.y, place.text.y - beside, place.text.y + beside)};
  } else if (size.radius > 0.0) {
    place.leaderEnd = place.bubble - directionOf(place.bubble - anchor) * size.radius;
  } else {
    place.leaderEnd = {std::clamp(anchor.x, box.least.x, box.most.x),
                       std::clamp(anchor.y, box.least.y, box.most.y)};
  }
  return place;
}

}  // namespace

CalloutPlace placeOf(const Callout& callout, double lettering, const SheetBox& room,
                     const Occupancy& taken, bool isQuick) {
  const CalloutSize size = calloutSize(callout, lettering);
  CalloutPlace best;
  double least = std::numeric_limits<double>::infinity();
  const int directions = isQuick ? kFewDirections : kDirections;
  for (const double ring : kRings) {
    bool isFree = false;
    for (const PlanePoint anchor : callout.anchors) {
      for (int i = 0; i < directions; ++i) {
        const double angle = (i + 0.5) * 2.0 * std::numbers::pi / directions;
        const SheetBox box = boxAt(anchor, turned({1.0, 0.0}, angle), ring * lettering, size, room);
        const double covered = taken.cost(box.grown(0.25 * lettering), least);
        if (covered >= least) {
          continue;
        }
        const CalloutPlace place = placeIn(box, anchor, size, lettering);
        const double leader = taken.cost(place.anchor, place.leaderEnd);
        const double detour =
            size.radius > 0.0 && crossesText(place, lettering) ? kToText * lettering : 0.0;
        const double away = lengthOf(place.leaderEnd - anchor) + detour;
        const double cost = covered + leader + kAwayShare * away;
        isFree = isFree || (covered == 0.0 && leader < Occupancy::kTextCost);
        if (cost < least - kAsGood) {
          least = cost;
          best = place;
        }
      }
    }
    if (isFree || (isQuick && ring > kRings[2])) {
      break;
    }
  }
  return best;
}

}  // namespace quorvan::tool
