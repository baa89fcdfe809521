#include <tools/draw/shapes/element_shapes.h>

#include <algorithm>

#include <tools/model/series_layout.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr double kMarkLength = 1.2;    // mm, of the stroke at each bar
constexpr double kRowLettering = 2.0;  // mm
constexpr double kAboveLine = 0.8;     // mm
constexpr double kSeriesWidth = 0.25;  // mm

std::string labelOf(const Repartition& series, const Bar* bar) {
  std::string text = std::to_string(series.number());
  if (bar != nullptr) {
    text =
        "(" + std::to_string(bar->reference) + ") " + text + " \u00D8" + rounded(bar->diameter, 2);
  }
  const std::string spacing = spacingText(statedSpacings(series, bar));
  return spacing.empty() ? text : text + " / " + spacing;
}

// The places of a label along the line from `first` to `last`: above it, then below, then farther.
std::vector<PlanePoint> placesAlong(PlanePoint first, PlanePoint last, PlanePoint up) {
  constexpr double kShares[] = {0.5, 0.3, 0.7, 0.1, 0.9};
  constexpr double kRows[] = {0.0, -1.0, 1.0, -2.0, 2.0, -3.0, 3.0};
  constexpr double kRowHeight = kRowLettering + 2.0 * kAboveLine;
  std::vector<PlanePoint> places;
  for (const double row : kRows) {
    for (const double share : kShares) {
      places.push_back(first + (last - first) * share + up * (kAboveLine + row * kRowHeight));
    }
  }
  return places;
}

// A dimension line over the points: a stroke at each, and a text above its middle.
void drawDimension(const std::vector<PlanePoint>& points, const std::string& label,
                   ShapeSink& sink) {
  PlanePoint way = directionOf(points.back() - points.front());
  const Style style{ink::kRepartitions, pen::kThin};
  Path line;
  line.moveTo(points.front());
  line.lineTo(points.back());
  sink.addPath(Layer::kRepartitions, style, std::move(line));
  const PlanePoint stroke = turned(way, 0.785398) * kMarkLength;
  Path strokes;
  for (const PlanePoint point : points) {
    strokes.moveTo(point - stroke);
    strokes.lineTo(point + stroke);
  }
  sink.addPath(Layer::kRepartitions, {ink::kRepartitions, pen::kMedium}, std::move(strokes));
  if (label.empty()) {
    return;
  }
  // Texts read from below or from the right.
  if (way.x < -1e-9 || (std::abs(way.x) <= 1e-9 && way.y < 0.0)) {
    way = way * -1.0;
  }
  Lettering text;
  text.text = label;
  text.height = kRowLettering;
  text.angle = std::atan2(way.y, way.x);
  text.alignX = AlignX::kCentre;
  sink.addLabel(Layer::kRepartitions, ink::kRepartitions, std::move(text),
                placesAlong(points.front(), points.back(), leftOf(way)));
}

// The bars themselves.
void drawSeriesBars(const SeriesLayout& layout, const Bar* bar, ShapeSink& sink) {
  const Sheet& sheet = sink.sheet();
  const double width = bar == nullptr ? kSeriesWidth : penOf(bar->diameter, kSeriesWidth, sheet);
  Path bars;
  for (const SeriesBar& one : layout.bars) {
    bars.moveTo(sheet.place(one.first));
    bars.lineTo(sheet.place(one.last));
  }
  sink.addPath(Layer::kRepartitions,
               {bar != nullptr && bar->isLink() ? ink::kLinks : ink::kBars, width},
               std::move(bars));
}

// Straight bars seen in view 1 have no line of their own: they are named at the bar.
void drawAtBar(const Repartition& series, const Bar& bar, ShapeSink& sink) {
  if (bar.line.size() < 2) {
    return;
  }
  const PlanePoint first = sink.sheet().place(bar.line.front());
  const PlanePoint last = sink.sheet().place(bar.line.back());
  PlanePoint way = directionOf(last - first);
  if (way.x < -1e-9) {
    way = way * -1.0;
  }
  const PlanePoint at = first + (last - first) * 0.25;
  const PlanePoint up = leftOf(way) * kMarkLength;
  sink.addCircle(Layer::kRepartitions, {ink::kRepartitions, pen::kMedium}, at, kMarkLength);
  Lettering text;
  text.text = labelOf(series, &bar);
  text.height = kRowLettering;
  text.angle = std::atan2(way.y, way.x);
  text.alignX = AlignX::kCentre;
  sink.addLabel(Layer::kRepartitions, ink::kRepartitions, std::move(text),
                placesAlong(at + up, at + up, leftOf(way)));
}

}  // namespace

void drawRepartition(const Repartition& series, const Bar* bar, bool isLabelled, ShapeSink& sink) {
  if (!series.hasLine()) {
    if (bar != nullptr && isLabelled) {
      drawAtBar(series, *bar, sink);
    }
    return;
  }
  const SeriesLayout layout = layOut(series, bar);
  if (layout.bars.empty()) {
    return;
  }
  std::vector<PlanePoint> points;
  for (const Coordinates& crossing : layout.crossings) {
    points.push_back(sink.sheet().place(crossing));
  }
  drawSeriesBars(layout, bar, sink);
  drawDimension(points, isLabelled ? labelOf(series, bar) : std::string(), sink);
}

}  // namespace quorvan::tool
