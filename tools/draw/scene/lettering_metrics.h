// Measures of letters and strokes that every form of output takes the same.
#pragma once

#include <algorithm>
#include <cmath>

#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

/// The size of a sans-serif font whose capitals have that height.
inline double fontSizeOf(double capitals) noexcept {
  constexpr double kCapitalsOfSize = 0.716;
  return capitals / kCapitalsOfSize;
}

/// Where the base line of a text begins, is centred or ends.
inline PlanePoint baseOf(const Lettering& text) noexcept {
  const double down = text.alignY == AlignY::kMiddle ? text.height / 2.0
                      : text.alignY == AlignY::kTop  ? text.height
                                                     : 0.0;
  return text.at - turned({0.0, down}, text.angle);
}

/// The paper left blank around a text that lies over lines, in mm.
inline double haloOf(double capitals) noexcept {
  return 0.3 * capitals;
}

/// Whether an arc that begins so far out of its centre comes nowhere so far from its chord that it
/// would be seen.
inline bool isFlat(PlanePoint out, double sweep) noexcept {
  constexpr double kUnseen = 0.005;  // mm
  return lengthOf(out) * (1.0 - std::cos(sweep / 2.0)) < kUnseen;
}

/// The gap behind a dash of length 1.
inline constexpr double kGapOfDash = 0.75;

/// The length of a dash, in mm.
inline double dashOf(double width) noexcept {
  constexpr double kLeast = 1.6;
  return std::max(kLeast, 3.0 * width);
}

}  // namespace quorvan::tool
