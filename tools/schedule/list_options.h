// What a bar list is made by.
#pragma once

#include <cstdint>
#include <optional>

#include <tools/bending/bending_rules.h>
#include <tools/model/length_unit.h>
#include <tools/schedule/cutting.h>

namespace quorvan::tool {

/// Series of one mark that look like the same bars in two views.
enum class TwinSeries : std::uint8_t { kAll, kOnce };

struct ListOptions {
  const LengthUnit* unit = kLengthUnits;
  TwinSeries twins = TwinSeries::kAll;
  bool byLength = false;                 // a row for each length of a series
  bool hasShapes = true;                 // rows of bars as filed say how these are bent
  BendingRules bending = {};             // its angle unit holds only if `angles` does
  std::optional<AngleUnit> angles = {};  // guessed for each drawing unless given
  CuttingRules cutting = {};
};

}  // namespace quorvan::tool
