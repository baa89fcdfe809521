#include <tools/draw/scene.h>

namespace quorvan::tool {

std::string_view layerName(Layer layer) noexcept {
  constexpr std::string_view kNames[kLayers] = {"fills",   "meshes",       "formwork", "lines",
                                                "circles", "repartitions", "links",    "bars",
                                                "end-on",  "texts",        "marks",    "title"};
  return kNames[static_cast<std::size_t>(layer)];
}

}  // namespace quorvan::tool
