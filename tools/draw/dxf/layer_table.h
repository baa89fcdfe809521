// The layers of a DXF: one for each kind of what is drawn, each diameter, and hidden bars apart.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

/// A layer as a program that opens the file shows it.
struct DxfLayer {
  std::string name;
  int color = 7;    // an index of the palette that CAD programs share
  int weight = 25;  // of its lines, in hundredths of a millimetre, one of those that there are
  bool isDashed = false;
};

/// What lies together on a layer.
struct LayerKey {
  Layer kind = Layer::kLines;
  double diameter = 0.0;          // of bars, in mm; 0 for what is none
  std::optional<Layer> repeated;  // of the bars of a series: the kind of bar
  bool isHidden = false;
  bool isOutline = false;  // bars by their outlines, drawn fine

  friend bool operator==(const LayerKey&, const LayerKey&) = default;
};

class LayerTable {
 public:
  /// `scale` is that of the paper, 25 for 1:25, on which the weights of lines count; hidden bars
  /// are dashed where `hasDashes`.
  LayerTable(double scale, bool hasDashes) : m_scale(scale), m_hasDashes(hasDashes) {}

  /// The name of the layer: "BARS_16", "LINKS_8_HIDDEN", "REPARTITIONS_LINKS_8", "FORMWORK";
  /// the decimal point of a diameter is an underscore, too. Valid as long as the table.
  const std::string& nameOf(const LayerKey& key);

  /// Those that were asked for, by name.
  [[nodiscard]] const std::map<std::string, DxfLayer>& layers() const noexcept { return m_layers; }

 private:
  struct Hash {
    std::size_t operator()(const LayerKey& key) const noexcept {
      return std::hash<double>()(key.diameter) * 31U + static_cast<std::size_t>(key.kind) * 2U +
             (key.isHidden ? 1U : 0U);
    }
  };

  double m_scale;
  bool m_hasDashes;
  std::map<std::string, DxfLayer> m_layers;
  std::unordered_map<LayerKey, const std::string*, Hash> m_names;
};

}  // namespace quorvan::tool
