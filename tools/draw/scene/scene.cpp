#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

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

}  // namespace quorvan::tool
