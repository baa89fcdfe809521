// To which length a bar is cut, and which dimensions it is bent to.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <tools/bending/bent_bar.h>
#include <tools/bending/shape_code.h>

namespace quorvan::tool {

enum class Schedule : std::uint8_t {
  kAxis,     // along the axis with sharp corners, nothing deducted or rounded
  kIso3766,  // outside dimensions, cut along the centre line
  kBs8666,   // shape codes and their formulas
};

enum class Rounding : std::uint8_t { kNearest, kUp };

/// What a bend takes off the sum of the outside dimensions.
struct Deduction {
  double diameters = 0.0;
  double millimetres = 0.0;
};

struct CuttingRules {
  Schedule schedule = Schedule::kAxis;
  double lengthStep = 0.0;  // mm; 0 for no rounding
  double legStep = 0.0;
  Rounding rounding = Rounding::kNearest;   // of lengths; dimensions go to the nearest
  std::optional<Deduction> deduction = {};  // in the place of the centre line or the formula
};

/// The rules by which the schedule is usually written.
CuttingRules usualRules(Schedule schedule) noexcept;

struct Cutting {
  double length = 0.0;                // mm, rounded
  std::vector<Dimension> dimensions;  // along the bar, or by letter with a shape code
  std::optional<int> code;
  std::string legs;  // the letter of each leg of the bar, where it has a shape code
};

Cutting cut(const BentBar& bent, const CuttingRules& rules);

/// A multiple of `step`; the value itself for 0.
double roundedTo(double value, double step, Rounding rounding) noexcept;

}  // namespace quorvan::tool
