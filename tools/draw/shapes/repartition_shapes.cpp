#include <tools/draw/shapes/element_shapes.h>

#include <algorithm>
#include <cmath>

#include <tools/model/series_layout.h>
#include <tools/model/series_spans.h>

namespace quorvan::tool {

namespace {

constexpr double kMarkLength = 1.2;    // mm, of the stroke at each bar
constexpr double kSeriesWidth = 0.25;  // mm
constexpr double kSameLength = 1.01;   // mm; lengths that differ by less are one in the bar list

// A dimension line over the points with a stroke at each.
void drawDimension(const std::vector<PlanePoint>& points, ShapeSink& sink) {
  const PlanePoint way = directionOf(points.back() - points.front());
  const Style style{ink::kRepartitions, pen::kThin};
  Path line;
  line.moveTo(points.front());
  line.lineTo(points.back());
  sink.addPath(Layer::kRepartitions, style, std::move(line));
  const PlanePoint stroke = turned(way, 0.785398) * (kMarkLength * sink.context().paper);
  Path strokes;
  for (const PlanePoint point : points) {
    strokes.moveTo(point - stroke);
    strokes.lineTo(point + stroke);
  }
  sink.addPath(Layer::kRepartitions, {ink::kRepartitions, pen::kMedium}, std::move(strokes));
}

void addSeriesLabel(const Repartition& series, const Bar* bar, std::vector<PlanePoint> anchors,
                    std::uint32_t element, ShapeSink& sink) {
  Callout callout;
  callout.layer = Layer::kRepartitions;
  callout.color = ink::kRepartitions;
  callout.text = seriesText(series, bar, sink);
  callout.anchors = std::move(anchors);
  callout.element = element;
  callout.isHidden = series.isHidden;
  sink.addCallout(std::move(callout));
}

// The bars themselves; gives where they lie.
SheetBox drawSeriesBars(const SeriesLayout& layout, const Bar* bar, ShapeSink& sink) {
  const Sheet& sheet = sink.sheet();
  const double unknown = sheet.isPaper() ? kSeriesWidth : 0.0;
  Style style{bar != nullptr && bar->isLink() ? ink::kLinks : ink::kBars,
              bar == nullptr ? unknown : penOf(bar->diameter, sheet)};
  style.isBar = true;
  Path bars;
  SheetBox box = SheetBox::none();
  for (const SeriesBar& one : layout.bars) {
    bars.moveTo(sheet.place(one.first));
    bars.lineTo(sheet.place(one.last));
    box.include(sheet.place(one.first));
    box.include(sheet.place(one.last));
  }
  sink.addPath(Layer::kRepartitions, style, std::move(bars));
  return box;
}

// Straight bars seen in view 1 have no line of their own: they are named at the bar.
SheetBox drawAtBar(const Repartition& series, const Bar& bar, ShapeSink& sink) {
  SheetBox named = SheetBox::none();
  if (bar.line.size() < 2) {
    return named;
  }
  const PlanePoint first = sink.sheet().place(bar.line.front());
  const PlanePoint last = sink.sheet().place(bar.line.back());
  const PlanePoint at = first + (last - first) * 0.25;
  sink.addCircle(Layer::kRepartitions, {ink::kRepartitions, pen::kMedium}, at,
                 kMarkLength * sink.context().paper);
  addSeriesLabel(series, &bar, {at}, sink.element(), sink);
  named.include(first);
  named.include(last);
  return named;
}

// Those of the bars of the series, which are not always as long as the bar that it repeats.
void setLengths(const Repartition& series, const Bar& bar, double unit, BarWords& words) {
  if (!bar.hasLength()) {
    return;
  }
  words.isLengthLeast = bar.shape == BarShape::kStirrup;
  const auto metres = [unit](const Bar& one) { return std::round(lengthOf(one) * unit) / 1000.0; };
  const std::vector<double> spans = differingSpans(series, bar, kSameLength / unit);
  if (spans.empty()) {
    words.shortestMetres = words.longestMetres = metres(bar);
    return;
  }
  const auto [least, most] = std::ranges::minmax_element(spans);
  words.shortestMetres = metres(withSpan(bar, *least));
  words.longestMetres = metres(withSpan(bar, *most));
}

}  // namespace

std::string seriesText(const Repartition& series, const Bar* bar, const ShapeSink& sink) {
  const std::vector<double> spacings = statedSpacings(series, bar);
  const double unit = sink.sheet().unit();
  const auto inUnits = [&](double millimetres) {
    std::vector<double> scaled = spacings;
    for (double& spacing : scaled) {
      spacing *= unit / millimetres;
    }
    return spacingText(scaled);
  };
  BarWords words;
  words.number = series.number();
  words.spacingInMillimetres = inUnits(1.0);
  words.spacingInCentimetres = inUnits(10.0);
  if (bar == nullptr) {
    return std::to_string(series.number()) +
           (spacings.empty() ? "" : " e=" + words.spacingInCentimetres);
  }
  words.mark = bar->reference;
  words.diameter = bar->diameter * unit;
  words.isSmooth = bar->adherence == "Dx";
  setLengths(series, *bar, unit, words);
  const std::string text = barText(words, sink.context().language);
  return sink.context().language == Language::kEnglish
             ? text
             : "(" + std::to_string(bar->reference) + ") " + text;
}

SheetBox drawRepartition(const Repartition& series, const Bar* bar, bool isLabelled,
                         ShapeSink& sink) {
  if (!series.hasLine()) {
    if (bar != nullptr && isLabelled) {
      return drawAtBar(series, *bar, sink);
    }
    return SheetBox::none();
  }
  const SeriesLayout layout = layOut(series, bar);
  if (layout.bars.empty()) {
    return SheetBox::none();
  }
  std::vector<PlanePoint> points;
  for (const Coordinates& crossing : layout.crossings) {
    points.push_back(sink.sheet().place(crossing));
  }
  const SheetBox bars = drawSeriesBars(layout, bar, sink);
  drawDimension(points, sink);
  if (isLabelled) {
    const PlanePoint way = points.back() - points.front();
    addSeriesLabel(series, bar,
                   {points[points.size() / 2], points.front() + way * 0.25,
                    points.front() + way * 0.75, points.front(), points.back()},
                   sink.element(), sink);
  }
  return isLabelled ? bars : SheetBox::none();
}

}  // namespace quorvan::tool
