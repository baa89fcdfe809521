// What a drawing is held against.
#pragma once

#include <optional>

#include <tools/bending/bending_rules.h>
#include <tools/model/angle_unit.h>
#include <tools/model/length_unit.h>

namespace quorvan::tool {

/// What is not given is not in a transfer file either: rules that need it are not checked, or only
/// as far as they hold whatever it is.
struct DetailingLimits {
  static constexpr double kUsualStock = 12000.0;

  bool hasEurocode2 = false;
  bool hasBs8666 = false;
  double stock = kUsualStock;        // mm
  std::optional<double> cover;       // mm
  std::optional<double> aggregate;   // greatest size, mm
  std::optional<Mandrel> mandrel;    // the least one allowed unless given
  std::optional<HookMeaning> hooks;  // either unless given
  std::optional<AngleUnit> angles;   // guessed unless given
  const LengthUnit* unit = kLengthUnits;
};

}  // namespace quorvan::tool
