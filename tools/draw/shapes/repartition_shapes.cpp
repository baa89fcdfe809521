#include <tools/draw/shapes/element_shapes.h>

#include <algorithm>

#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr double kMarkLength = 1.2;    // mm, of the stroke at each bar
constexpr double kLettering = 2.0;     // mm
constexpr double kAboveLine = 0.8;     // mm
constexpr double kSeriesWidth = 0.25;  // mm
constexpr std::size_t kMostBars = 100000;

std::string labelOf(const Repartition& series, const Bar* bar) {
  std::string text = std::to_string(series.number());
  if (bar != nullptr) {
    text =
        "(" + std::to_string(bar->reference) + ") " + text + " \u00D8" + rounded(bar->diameter, 2);
  }
  const std::string spacing = spacingText(series.spacings());
  return spacing.empty() ? text : text + " / " + spacing;
}

// The places of a label along the line from `first` to `last`: above it, then below, then farther.
std::vector<PlanePoint> placesAlong(PlanePoint first, PlanePoint last, PlanePoint up) {
  constexpr double kShares[] = {0.5, 0.3, 0.7, 0.1, 0.9};
  constexpr double kRows[] = {0.0, -1.0, 1.0, -2.0, 2.0, -3.0, 3.0};
  constexpr double kRowHeight = kLettering + 2.0 * kAboveLine;
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
  // Texts read from below or from the right.
  if (way.x < -1e-9 || (std::abs(way.x) <= 1e-9 && way.y < 0.0)) {
    way = way * -1.0;
  }
  Lettering text;
  text.text = label;
  text.height = kLettering;
  text.angle = std::atan2(way.y, way.x);
  text.alignX = AlignX::kCentre;
  sink.addLabel(Layer::kRepartitions, ink::kRepartitions, std::move(text),
                placesAlong(points.front(), points.back(), leftOf(way)));
}

// Where the bars cross the line of the series.
std::vector<PlanePoint> crossings(const Repartition& series, const Sheet& sheet) {
  const PlanePoint start = sheet.place(series.start);
  const PlanePoint end = sheet.place(series.end);
  const PlanePoint way =
      end == start ? directionOf(sheet.direction(series.axis)) : directionOf(end - start);
  std::vector<PlanePoint> points{start};
  for (const double position : series.positions) {
    if (points.size() == kMostBars) {
      break;
    }
    points.push_back(points.back() + way * (position * sheet.factor()));
  }
  return points;
}

// The bars themselves: the distances are to the left of the axis where they are above 0.
void drawSeriesBars(const Repartition& series, const Bar* bar,
                    const std::vector<PlanePoint>& points, ShapeSink& sink) {
  const double factor = sink.sheet().factor();
  const PlanePoint left = leftOf(directionOf(sink.sheet().direction(series.axis)));
  const double width =
      bar == nullptr ? kSeriesWidth : penOf(bar->diameter, kSeriesWidth, sink.sheet());
  Path bars;
  const std::size_t count = std::min({points.size(), series.top.size(), series.bottom.size()});
  for (std::size_t i = 0; i < count; ++i) {
    bars.moveTo(points[i] + left * (series.top[i] * factor));
    bars.lineTo(points[i] + left * (series.bottom[i] * factor));
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
  text.height = kLettering;
  text.angle = std::atan2(way.y, way.x);
  text.alignX = AlignX::kCentre;
  sink.addLabel(Layer::kRepartitions, ink::kRepartitions, std::move(text),
                placesAlong(at + up, at + up, leftOf(way)));
}

}  // namespace

void drawRepartition(const Repartition& series, const Bar* bar, ShapeSink& sink) {
  if (!series.hasLine()) {
    if (bar != nullptr) {
      drawAtBar(series, *bar, sink);
    }
    return;
  }
  const std::vector<PlanePoint> points = crossings(series, sink.sheet());
  drawSeriesBars(series, bar, points, sink);
  drawDimension(points, labelOf(series, bar), sink);
}

}  // namespace quorvan::tool
