// What a transfer file leaves open about the bending of its bars.
#pragma once

#include <cstdint>
#include <optional>

#include <tools/model/angle_unit.h>

namespace quorvan::tool {

/// What the length of a hook in the file means. From the corner: from the corner into which the
/// hook is bent or, beyond a right angle, from the line that the bend touches at the end of the
/// bar. The straight part: what lies behind the bend.
enum class HookMeaning : std::uint8_t { kCorner, kStraight };

/// What the radius of a circular frame in the file is.
enum class RingRadius : std::uint8_t { kAxis, kInner };

/// The diameter of the bending roller: a number of bar diameters, or one in mm.
struct Mandrel {
  double diameters = 0.0;
  double millimetres = 0.0;
};

/// By EN 1992-1-1: four diameters up to 16 mm, seven above.
inline constexpr double kThickestOnSmallRoller = 16.0;
inline constexpr double kSmallRoller = 4.0;
inline constexpr double kLargeRoller = 7.0;

struct BendingRules {
  HookMeaning hooks = HookMeaning::kCorner;
  RingRadius ring = RingRadius::kAxis;
  std::optional<Mandrel> mandrel;
  AngleUnit angles = AngleUnit::kDegrees;
};

/// The roller's diameter in mm for a bar of so many mm.
constexpr double usualRoller(double diameter) noexcept {
  // Sizes come from decimals in other units: 16 mm is not to become 16.000000000000002.
  constexpr double kTolerance = 1e-6;
  return diameter <= kThickestOnSmallRoller + kTolerance ? kSmallRoller * diameter
                                                         : kLargeRoller * diameter;
}

constexpr double rollerOf(double diameter, const BendingRules& rules) noexcept {
  if (!rules.mandrel) {
    return usualRoller(diameter);
  }
  return rules.mandrel->diameters > 0.0 ? rules.mandrel->diameters * diameter
                                        : rules.mandrel->millimetres;
}

}  // namespace quorvan::tool
