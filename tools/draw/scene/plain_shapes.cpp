#include <tools/draw/scene/plain_shapes.h>

#include <utility>

namespace quorvan::tool {

namespace {

Shape shapeOf(Shape::Kind kind, Layer layer, Color color) {
  Shape shape = {};
  shape.kind = kind;
  shape.layer = layer;
  shape.style.color = color;
  return shape;
}

}  // namespace

Shape textShape(Lettering text, Color color) {
  Shape shape = shapeOf(Shape::Kind::kText, Layer::kTexts, color);
  shape.style.isFilled = true;
  shape.lettering = std::move(text);
  return shape;
}

Shape lineShape(Layer layer, Color color, double width, Path path) {
  Shape shape = shapeOf(Shape::Kind::kPath, layer, color);
  shape.style.width = width;
  shape.path = std::move(path);
  return shape;
}

Shape circleShape(Layer layer, Color color, PlanePoint center, double radius, bool isFilled) {
  Shape shape = shapeOf(Shape::Kind::kCircle, layer, color);
  shape.style.isFilled = isFilled;
  shape.center = center;
  shape.radius = radius;
  return shape;
}

}  // namespace quorvan::tool
