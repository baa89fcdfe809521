#include <tools/schedule/cutting.h>

#include <cmath>

namespace quorvan::tool {

namespace {

double outsideLength(const BentBar& bent) {
  double length = 0.0;
  for (const Leg& leg : bent.legs) {
    length += leg.isArc ? leg.axis : leg.outside;
  }
  return length;
}

double deducted(const BentBar& bent, const Deduction& deduction) {
  const double bend = deduction.diameters * bent.diameter + deduction.millimetres;
  return outsideLength(bent) - bend * static_cast<double>(bent.bends.size());
}

// A circular frame has its diameter and its overlap, others their legs.
std::vector<Dimension> dimensionsOf(const BentBar& bent, double step) {
  std::vector<Dimension> dimensions;
  for (const Leg& leg : bent.legs) {
    if (leg.isArc) {
      const double across = 2.0 * bent.ringRadius + bent.diameter;
      dimensions.push_back({0, roundedTo(across, step, Rounding::kNearest)});
      dimensions.push_back({0, roundedTo(bent.overlap, step, Rounding::kNearest)});
    } else {
      dimensions.push_back(
          {0, roundedTo(leg.outside, step, Rounding::kNearest), false, leg.isUnknown});
    }
  }
  return dimensions;
}

}  // namespace

CuttingRules usualRules(Schedule schedule) noexcept {
  switch (schedule) {
    case Schedule::kAxis:
      return {schedule, 0.0, 0.0, Rounding::kNearest};
    case Schedule::kIso3766:
      return {schedule, 10.0, 1.0, Rounding::kNearest};
    case Schedule::kBs8666:
      return {schedule, 25.0, 5.0, Rounding::kUp};
  }
  return {};
}

Cutting cut(const BentBar& bent, const CuttingRules& rules) {
  Cutting cutting;
  if (rules.schedule == Schedule::kAxis) {
    cutting.length = bent.axisLength();
  } else {
    cutting.length = bent.centreLine();
    cutting.dimensions = dimensionsOf(bent, rules.legStep);
  }
  if (rules.schedule == Schedule::kBs8666) {
    ShapeCode code = shapeCodeOf(bent, rules.legStep);
    cutting.length = code.length;
    cutting.code = code.number;
    if (code.number != ShapeCode::kSketch) {
      cutting.dimensions = std::move(code.dimensions);
      cutting.legs = std::move(code.legs);
    }
  }
  if (rules.deduction) {
    cutting.length = deducted(bent, *rules.deduction);
  }
  cutting.length = roundedTo(cutting.length, rules.lengthStep, rules.rounding);
  return cutting;
}

double roundedTo(double value, double step, Rounding rounding) noexcept {
  if (!(step > 0.0)) {
    return value;
  }
  // A length that is a multiple but for the last digits is not to go up by a whole step.
  constexpr double kTolerance = 1e-6;
  return step * (rounding == Rounding::kUp ? std::ceil(value / step - kTolerance)
                                           : std::round(value / step));
}

}  // namespace quorvan::tool
