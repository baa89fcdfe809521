#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

std::string_view layerName(Layer layer) noexcept {
  constexpr std::string_view kNames[kLayers] = {"fills",        "meshes", "formwork", "lines",
                                                "circles",      "links",  "bars",     "end-on",
                                                "repartitions", "texts",  "marks",    "title"};
  return kNames[static_cast<std::size_t>(layer)];
}

}  // namespace quorvan::tool
