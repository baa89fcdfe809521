// What a DXF can be like.
#pragma once

#include <cstdint>

namespace quorvan::tool {

/// R12 is what every program opens; 2000 adds line weights, hatches and units.
enum class DxfVersion : std::uint8_t { kR12, k2000 };

/// A bar as a polyline as wide as the bar, as its axis alone, or as the outline of what it covers.
enum class BarLines : std::uint8_t { kWidth, kAxis, kOutline };

struct DxfOptions {
  DxfVersion version = DxfVersion::kR12;
  BarLines bars = BarLines::kWidth;
};

}  // namespace quorvan::tool
