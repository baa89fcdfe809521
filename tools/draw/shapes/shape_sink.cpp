#include <tools/draw/shapes/shape_sink.h>

#include <algorithm>
#include <cmath>

#include <tools/draw/scene/clipping.h>

namespace quorvan::tool {

namespace {

// mm around the sheet: what lies beyond is cut off. With room for the widest pen, and for whoever
// moves a picture about to see how lines go on.
constexpr double kAround = 1000.0;
// Beyond this, products of places are no numbers.
constexpr double kFarthestMeasured = 1e100;
constexpr double kLargestDot = 5.0;  // mm: such a circle is no place for a label inside

bool isPlaced(PlanePoint point, double farthest) {
  return std::abs(point.x) <= farthest && std::abs(point.y) <= farthest;
}

bool isPlaced(const Path& path, double farthest) {
  if (!path.isFinite()) {
    return false;
  }
  for (const PathStep& step : path.steps()) {
    if (!isPlaced(step.to, farthest)) {
      return false;
    }
  }
  return true;
}

}  // namespace

SheetBox ShapeSink::visible() const noexcept {
  return SheetBox{{}, {sheet().width(), sheet().height()}}.grown(kAround);
}

void ShapeSink::addPath(Layer layer, const Style& style, Path path) {
  if (path.steps().empty()) {
    return;
  }
  if (!path.isFinite() || (m_context.isMeasuring && !isPlaced(path, kFarthestMeasured))) {
    return leaveOut();
  }
  Shape shape = shapeOn(layer, Shape::Kind::kPath, style);
  if (m_context.isMeasuring) {
    shape.path = std::move(path);
  } else {
    shape.path = style.isFilled ? clippedFill(path, visible()) : clippedStroke(path, visible());
    if (shape.path.steps().empty()) {
      return;
    }
    m_taken.take(shape.path, Occupancy::Kind::kLine, style.isFilled ? 0.0 : style.width);
  }
  if (style.isBar && shape.isHidden && shape.style.isDashed && sheet().isPaper()) {
    addGaps(shape);
  }
  add(std::move(shape));
}

// What shows between the dashes, on a visible bar below as well: paper, narrower than the bar,
// whose edges go on.
void ShapeSink::addGaps(const Shape& dashed) {
  constexpr double kShare = 0.5;
  Shape gaps = dashed;
  gaps.style = {ink::kPaper, kShare * dashed.style.width};
  add(std::move(gaps));
}

void ShapeSink::addCircle(Layer layer, const Style& style, PlanePoint center, double radius) {
  if (!isPlaced(center, kFarthestMeasured) || !(std::abs(radius) <= kFarthestMeasured)) {
    return leaveOut();
  }
  if (!m_context.isMeasuring &&
      !visible().meets(SheetBox{center, center}.grown(std::abs(radius)))) {
    return;
  }
  if (!m_context.isMeasuring && !style.isFilled && std::abs(radius) > kAround) {
    Path circle;
    circle.moveTo(center + PlanePoint{std::abs(radius), 0.0});
    circle.arcTo(center, 2.0 * std::numbers::pi);
    return addPath(layer, style, std::move(circle));
  }
  Shape shape = shapeOn(layer, Shape::Kind::kCircle, style);
  shape.center = center;
  shape.radius = std::abs(radius);
  if (!m_context.isMeasuring && shape.radius <= kLargestDot) {
    m_taken.take(SheetBox{center, center}.grown(shape.radius), Occupancy::Kind::kLine);
  } else if (!m_context.isMeasuring) {
    Path round;
    round.moveTo(center + PlanePoint{shape.radius, 0.0});
    round.arcTo(center, 2.0 * std::numbers::pi);
    m_taken.take(round, Occupancy::Kind::kLine);
  }
  add(std::move(shape));
}

void ShapeSink::addText(Layer layer, const Style& style, Lettering lettering) {
  if (!isPlaced(lettering.at, kFarthestMeasured) || !std::isfinite(lettering.height) ||
      !std::isfinite(lettering.angle)) {
    return leaveOut();
  }
  if (!m_context.isMeasuring) {
    lettering.height = std::clamp(lettering.height, -sheet().width() - sheet().height(),
                                  sheet().width() + sheet().height());
    const double reach =
        std::abs(lettering.height) * static_cast<double>(lettering.text.size() + 1);
    if (!visible().meets(SheetBox{lettering.at, lettering.at}.grown(reach))) {
      return;
    }
  }
  Shape shape = shapeOn(layer, Shape::Kind::kText, style);
  shape.lettering = std::move(lettering);
  if (!m_context.isMeasuring) {
    m_taken.take(shape.lettering);
  }
  add(std::move(shape));
}

void ShapeSink::add(Shape shape) {
  m_layers[static_cast<std::size_t>(shape.layer)].push_back(std::move(shape));
}

void ShapeSink::addLabel(Layer layer, Color color, Lettering lettering,
                         std::vector<PlanePoint> places) {
  if (!m_context.isMeasuring && !places.empty() && !lettering.text.empty()) {
    m_labels.push_back({layer, color, std::move(lettering), std::move(places), m_element});
  }
}

void ShapeSink::addCallout(Callout callout) {
  if (m_context.isMeasuring) {
    return;
  }
  const SheetBox room = m_context.sheet.room();
  std::erase_if(callout.anchors, [&](PlanePoint anchor) {
    return !isFinite(anchor) || !room.meets({anchor, anchor});
  });
  if (!callout.anchors.empty()) {
    m_callouts.push_back(std::move(callout));
  }
}

void ShapeSink::drawLabels() {
  constexpr std::size_t kMany = 1000;
  Style style{{}, 0.0, true};
  style.isOnPaper = true;
  for (Label& label : m_labels) {
    begin(label.element);
    style.color = label.color;
    Lettering best = label.lettering;
    double least = -1.0;
    for (const PlanePoint place : label.places) {
      label.lettering.at = place;
      const double cost = isPlaced(place, kFarthestMeasured) ? m_taken.cost(label.lettering) : -1.0;
      if (cost >= 0.0 && (least < 0.0 || cost < least)) {
        least = cost;
        best = label.lettering;
      }
    }
    if (least >= 0.0) {
      addText(label.layer, style, std::move(best));
    }
  }
  for (const Callout& callout : m_callouts) {
    drawCallout(callout, m_callouts.size() > kMany);
  }
  m_labels.clear();
  m_callouts.clear();
}

void ShapeSink::drawCallout(const Callout& callout, bool isQuick) {
  const double lettering = m_context.lettering;
  const CalloutPlace place = placeOf(callout, lettering, m_context.sheet.room(), m_taken, isQuick);
  begin(callout.element, callout.isHidden);
  m_isDashed = false;  // leaders are short
  const Style line{callout.color, pen::kThin};
  Path leader;
  leader.moveTo(place.anchor);
  leader.lineTo(place.leaderEnd);
  addPath(callout.layer, line, std::move(leader));
  if (!callout.mark.empty()) {
    Style bubble = line;
    bubble.isOnPaper = true;
    addCircle(callout.layer, bubble, place.bubble, place.radius);
    addText(callout.layer, callout.color,
            {callout.mark, place.bubble, lettering, 0.0, AlignX::kCentre, AlignY::kMiddle});
  }
  if (!callout.text.empty()) {
    Style text{callout.color, 0.0, true};
    text.isOnPaper = true;
    addText(callout.layer, text,
            {callout.text, place.text, lettering, 0.0, AlignX::kLeft, AlignY::kMiddle});
  }
  m_taken.take(place.box, Occupancy::Kind::kText);
}

Color ShapeSink::ink(std::int64_t number) {
  const Color color = colorOf(number, m_context.colors);
  const Color legible = legibleOnPaper(color);
  m_darkened += legible == color ? 0U : 1U;
  return legible;
}

double ShapeSink::heightOf(double height) {
  if (height > 0.0) {
    return height * m_context.sheet.factor();
  }
  ++m_withoutHeight;
  return m_context.lettering;
}

std::vector<Shape> ShapeSink::take() {
  // Dashed bars lie on visible ones, so that their gaps are seen.
  for (const Layer bars : {Layer::kLinks, Layer::kBars}) {
    if (m_context.hidden == HiddenBars::kDashed && sheet().isPaper()) {
      std::vector<Shape>& shapes = m_layers[static_cast<std::size_t>(bars)];
      const auto isSeen = [](const Shape& shape) { return !shape.isHidden; };
      // To part what is parted already takes room for as many again.
      if (!std::ranges::is_partitioned(shapes, isSeen)) {
        std::stable_partition(shapes.begin(), shapes.end(), isSeen);
      }
    }
  }
  std::size_t count = 0;
  for (const std::vector<Shape>& layer : m_layers) {
    count += layer.size();
  }
  std::vector<Shape> all;
  all.reserve(count);
  for (std::vector<Shape>& layer : m_layers) {
    for (Shape& shape : layer) {
      all.push_back(std::move(shape));
    }
    layer.clear();
  }
  return all;
}

Shape ShapeSink::shapeOn(Layer layer, Shape::Kind kind, const Style& style) const {
  Shape shape{};
  shape.layer = layer;
  shape.kind = kind;
  shape.element = m_element;
  shape.isHidden = m_isHidden;
  shape.style = style;
  shape.style.isDashed = style.isDashed || (m_isDashed && !style.isFilled);
  return shape;
}

void ShapeSink::leaveOut() {
  if (m_lastLeftOut != m_element) {
    ++m_leftOut;
  }
  m_lastLeftOut = m_element;
}

}  // namespace quorvan::tool
