#include <tools/draw/shapes/shape_sink.h>

#include <cmath>

namespace quorvan::tool {

namespace {

// Beyond this nothing on a sheet can be meant, and numbers get too long to be written.
constexpr double kFarthestDrawn = 1e9;

bool isPlaced(PlanePoint point) {
  return std::abs(point.x) <= kFarthestDrawn && std::abs(point.y) <= kFarthestDrawn;
}

bool isPlaced(const Path& path) {
  if (!path.isFinite()) {
    return false;
  }
  for (const PathStep& step : path.steps()) {
    if (!isPlaced(step.to)) {
      return false;
    }
  }
  return true;
}

}  // namespace

void ShapeSink::addPath(Layer layer, const Style& style, Path path) {
  if (path.steps().empty()) {
    return;
  }
  if (!isPlaced(path)) {
    return leaveOut();
  }
  Shape shape = shapeOn(layer, Shape::Kind::kPath, style);
  shape.path = std::move(path);
  m_layers[static_cast<std::size_t>(layer)].push_back(std::move(shape));
}

void ShapeSink::addCircle(Layer layer, const Style& style, PlanePoint center, double radius) {
  if (!isPlaced(center) || !(std::abs(radius) <= kFarthestDrawn)) {
    return leaveOut();
  }
  Shape shape = shapeOn(layer, Shape::Kind::kCircle, style);
  shape.center = center;
  shape.radius = std::abs(radius);
  m_layers[static_cast<std::size_t>(layer)].push_back(std::move(shape));
}

void ShapeSink::addText(Layer layer, const Style& style, Lettering lettering) {
  if (!isPlaced(lettering.at) || !(std::abs(lettering.height) <= kFarthestDrawn) ||
      !std::isfinite(lettering.angle)) {
    return leaveOut();
  }
  Shape shape = shapeOn(layer, Shape::Kind::kText, style);
  shape.lettering = std::move(lettering);
  m_layers[static_cast<std::size_t>(layer)].push_back(std::move(shape));
}

void ShapeSink::addLabel(Layer layer, Color color, Lettering lettering,
                         std::span<const PlanePoint> places) {
  if (places.empty()) {
    return;
  }
  lettering.at = places.front();
  for (const PlanePoint place : places) {
    Lettering there = lettering;
    there.at = place;
    if (isPlaced(place) && m_taken.isFree(boxesOf(there))) {
      lettering.at = place;
      break;
    }
  }
  m_taken.take(boxesOf(lettering));
  Style style{color, 0.0, true};
  style.isOnPaper = true;
  addText(layer, style, std::move(lettering));
}

std::vector<Shape> ShapeSink::take() {
  std::vector<Shape> all;
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
  shape.style.isDashed =
      style.isDashed || (m_isHidden && m_context.hidden == HiddenBars::kDashed && !style.isFilled);
  return shape;
}

void ShapeSink::leaveOut() {
  if (m_lastLeftOut != m_element) {
    ++m_leftOut;
  }
  m_lastLeftOut = m_element;
}

}  // namespace quorvan::tool
