// The line of a bent bar on its sketch.
#pragma once

#include <algorithm>
#include <vector>

#include <tools/bending/bent_bar.h>
#include <tools/draw/scene/path.h>

namespace quorvan::tool {

// A leg on the sketch.
struct DrawnLeg {
  PlanePoint begin;
  PlanePoint end;
};

struct SketchBox {
  PlanePoint least{1e9, 1e9};
  PlanePoint most{-1e9, -1e9};

  void add(PlanePoint point) {
    least = {std::min(least.x, point.x), std::min(least.y, point.y)};
    most = {std::max(most.x, point.x), std::max(most.y, point.y)};
  }
  [[nodiscard]] PlanePoint middle() const { return (least + most) * 0.5; }
};

struct SketchOutline {
  Path path;
  std::vector<DrawnLeg> legs;
  std::vector<PlanePoint> bends;  // the middle of each
  SketchBox box;
};

/// Its longest leg level, its legs as long as their dimensions need, times `factor`; legs that
/// would lie on each other are drawn side by side. A bar that lies in no plane is seen from above
/// at an angle.
SketchOutline sketchOutline(const BentBar& bent, double factor);

}  // namespace quorvan::tool
