// How a drawing is to be drawn.
#pragma once

#include <cstdint>
#include <optional>

#include <tools/draw/scene/colors.h>
#include <tools/model/angle_unit.h>
#include <tools/schedule/bar_list.h>

namespace quorvan::tool {

enum class Plane : std::uint8_t { kXY, kXZ, kYZ };
enum class HiddenBars : std::uint8_t { kDashed, kOff, kSolid };

/// Which bars get a mark: one bar of each mark that no text of the drawing names, every bar, none.
enum class Marks : std::uint8_t { kAuto, kAll, kNone };

/// The size of a sheet in mm.
struct SheetSize {
  double width;
  double height;
};

struct DrawOptions {
  Plane plane = Plane::kXY;
  const LengthUnit* unit = kLengthUnits;
  std::optional<SheetSize> sheet;
  std::optional<double> scale;  // 25 for 1:25
  std::optional<ColorScheme> colors;
  std::optional<AngleUnit> angles;
  HiddenBars hidden = HiddenBars::kDashed;
  Marks marks = Marks::kAuto;
};

}  // namespace quorvan::tool
