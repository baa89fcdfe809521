// A text with a leader to what it names.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <tools/draw/scene/occupancy.h>
#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

struct Callout {
  Layer layer = Layer::kMarks;
  Color color;
  std::string mark;  // in a bubble before the text; none without
  std::string text;
  std::vector<PlanePoint> anchors;  // the leader ends at one of them
  std::uint32_t element = kNoElement;
  bool isHidden = false;
};

/// Where a callout stands on the sheet.
struct CalloutPlace {
  PlanePoint anchor;
  PlanePoint leaderEnd;
  PlanePoint bubble;  // its centre
  double radius = 0.0;
  PlanePoint text;  // the middle of its left end
  SheetBox box;
};

/// The place near an anchor, within `room`, at which the callout with letters of that height covers
/// least: no text, no bar, no dimension, no concrete where there is such a place. `isQuick` looks
/// at fewer.
CalloutPlace placeOf(const Callout& callout, double lettering, const SheetBox& room,
                     const Occupancy& taken, bool isQuick);

}  // namespace quorvan::tool
