#include <tools/draw/shapes/element_shapes.h>

#include <algorithm>
#include <cmath>

#include <tools/draw/shapes/sheet_bar.h>

namespace quorvan::tool {

double penOf(double diameter, const Sheet& sheet) noexcept {
  constexpr double kThinnest = 0.35;
  constexpr double kThickestLeast = 0.8;
  const double width = std::abs(diameter) * sheet.factor();
  if (!sheet.isPaper()) {
    return width;
  }
  const double least =
      std::clamp(0.3 + 0.0125 * std::abs(diameter) * sheet.unit(), kThinnest, kThickestLeast);
  return width > least ? std::min(width, pen::kThickest) : least;
}

void drawBar(const Bar& bar, ShapeSink& sink) {
  if (bar.line.empty()) {
    return;
  }
  const double width = penOf(bar.diameter, sink.sheet());
  Path path = bar.shape == BarShape::kPoint ? Path() : SheetBar(bar, sink.context()).path();
  // A bar along the view is a point as well.
  if (path.steps().empty()) {
    sink.addCircle(Layer::kEndOn, {ink::kBars, 0.0, true}, sink.sheet().place(bar.line.front()),
                   width / 2.0);
    return;
  }
  Style style{ink::kBars, width};
  style.isBar = true;
  sink.addPath(Layer::kBars, style, std::move(path));
}

}  // namespace quorvan::tool
