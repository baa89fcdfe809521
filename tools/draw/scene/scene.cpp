#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

namespace {

PlanePoint scaled(PlanePoint point, double factor, PlanePoint by) {
  return point * factor + by;
}

}  // namespace

std::string_view layerName(Layer layer) noexcept {
  constexpr std::string_view kNames[kLayers] = {"fills",        "meshes", "formwork", "lines",
                                                "circles",      "links",  "bars",     "end-on",
                                                "repartitions", "texts",  "marks",    "title"};
  return kNames[static_cast<std::size_t>(layer)];
}

std::optional<Layer> layerNamed(std::string_view name) noexcept {
  for (std::size_t i = 0; i < kLayers; ++i) {
    if (layerName(static_cast<Layer>(i)) == name) {
      return static_cast<Layer>(i);
    }
  }
  return std::nullopt;
}

Shape placed(const Shape& shape, double factor, PlanePoint by) {
  Shape result = shape;
  result.style.width *= factor;
  result.center = scaled(shape.center, factor, by);
  result.radius *= factor;
  result.lettering.at = scaled(shape.lettering.at, factor, by);
  result.lettering.height *= factor;
  Path path;
  for (const PathStep& step : shape.path.steps()) {
    if (step.kind == PathStep::Kind::kMove) {
      path.moveTo(scaled(step.to, factor, by));
    } else if (step.kind == PathStep::Kind::kLine) {
      path.lineTo(scaled(step.to, factor, by));
    } else if (step.kind == PathStep::Kind::kClose) {
      path.close();
    } else {
      path.arcTo(scaled(step.center, factor, by), step.sweep);
    }
  }
  result.path = std::move(path);
  return result;
}

}  // namespace quorvan::tool
