// Scenes of a shape or two, for what writes them.
#pragma once

#include <string>

#include <tools/draw/scene/scene.h>

namespace quorvan::test {

inline tool::Scene sceneOfSize(double width, double height) {
  tool::Scene scene;
  scene.width = width;
  scene.height = height;
  return scene;
}

/// A text that begins at this point.
inline tool::Shape textAt(tool::PlanePoint point, double height, const std::string& text) {
  tool::Shape shape{};
  shape.layer = tool::Layer::kTexts;
  shape.kind = tool::Shape::Kind::kText;
  shape.style = {{}, 0.0, true};
  shape.lettering = {text, point, height, 0.0, tool::AlignX::kLeft, tool::AlignY::kBase};
  return shape;
}

}  // namespace quorvan::test
