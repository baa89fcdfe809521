#include <tools/draw/scene/painted_box.h>

#include <cmath>
#include <numbers>

#include <tools/draw/scene/lettering_metrics.h>
#include <tools/draw/scene/text_width.h>

namespace quorvan::tool {

namespace {

constexpr double kQuarter = std::numbers::pi / 2.0;
constexpr double kDescent = 0.3;  // of the height of capitals, below the base line
constexpr double kRise = 1.3;     // accents over capitals

// Where the arc crosses the axes of its circle it reaches farthest.
void includeArc(SheetBox& box, PlanePoint from, const PathStep& arc) {
  const PlanePoint out = from - arc.center;
  const double radius = lengthOf(out);
  const double begin = std::atan2(out.y, out.x);
  const double least = std::min(begin, begin + arc.sweep);
  const double most = std::max(begin, begin + arc.sweep);
  for (double turn = std::ceil(least / kQuarter); turn * kQuarter <= most; turn += 1.0) {
    box.include(arc.center + turned({radius, 0.0}, turn * kQuarter));
  }
  box.include(arc.to);
}

}  // namespace

SheetBox boxOf(const Path& path) {
  SheetBox box = SheetBox::none();
  PlanePoint at;
  for (const PathStep& step : path.steps()) {
    if (step.kind == PathStep::Kind::kClose) {
      continue;
    }
    if (step.kind == PathStep::Kind::kArc) {
      includeArc(box, at, step);
    } else {
      box.include(step.to);
    }
    at = step.to;
  }
  return box;
}

TextCorners cornersOf(const Lettering& text) {
  const double width = textWidth(text.text, text.height);
  const PlanePoint along = turned({1.0, 0.0}, text.angle);
  const PlanePoint up = leftOf(along) * text.height;
  const double share = text.alignX == AlignX::kCentre  ? 0.5
                       : text.alignX == AlignX::kRight ? 1.0
                                                       : 0.0;
  const PlanePoint begin = baseOf(text) - along * (share * width);
  const PlanePoint end = begin + along * width;
  return {{begin, end, end + up, begin + up}};
}

SheetBox paintedBox(const Shape& shape, double width) {
  if (shape.kind == Shape::Kind::kCircle) {
    return SheetBox{shape.center, shape.center}.grown(shape.radius + width / 2.0);
  }
  const SheetBox box = boxOf(shape.path);
  return box.isEmpty() ? box : box.grown(width / 2.0);
}

SheetBox paintedBox(const Shape& shape) {
  if (shape.kind != Shape::Kind::kText) {
    return paintedBox(shape, shape.style.width);
  }
  SheetBox box = SheetBox::none();
  const TextCorners text = cornersOf(shape.lettering);
  const PlanePoint up = text.corners[3] - text.corners[0];
  for (const PlanePoint corner : {text.corners[0], text.corners[1]}) {
    box.include(corner - up * kDescent);
    box.include(corner + up * kRise);
  }
  return box;
}

}  // namespace quorvan::tool
