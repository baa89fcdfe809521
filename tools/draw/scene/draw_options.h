// How a drawing is to be drawn.
#pragma once

#include <cstdint>
#include <optional>

#include <tools/draw/scene/colors.h>
#include <tools/draw/scene/scene.h>
#include <tools/draw/scene/sheet_box.h>
#include <tools/draw/scene/wording.h>
#include <tools/model/angle_unit.h>
#include <tools/model/length_unit.h>

namespace quorvan::tool {

enum class Plane : std::uint8_t { kXY, kXZ, kYZ };
enum class HiddenBars : std::uint8_t { kDashed, kOff, kSolid };

/// Which bars get a mark: one bar of each mark that no text of the drawing names, every bar, none.
enum class Marks : std::uint8_t { kAuto, kAll, kNone };

/// The strip with legend and title block: below the drawing, or left out.
enum class Title : std::uint8_t { kStrip, kNone };

/// The size of a sheet in mm.
struct SheetSize {
  double width;
  double height;
};

struct DrawOptions {
  Plane plane = Plane::kXY;
  const LengthUnit* unit = kLengthUnits;
  std::optional<SheetSize> sheet;
  std::optional<double> scale;     // 25 for 1:25
  std::optional<SheetBox> window;  // in the drawing's unit: nothing beyond it is shown
  bool isWhole = false;            // outliers are drawn as well
  std::optional<ColorScheme> colors;
  std::optional<AngleUnit> angles;
  std::optional<Language> language;
  HiddenBars hidden = HiddenBars::kDashed;
  Marks marks = Marks::kAuto;
  Title title = Title::kStrip;
  std::uint32_t layers = ~0U;  // a bit for each layer that is drawn

  [[nodiscard]] bool shows(Layer layer) const noexcept {
    return (layers >> static_cast<unsigned>(layer) & 1U) != 0;
  }
  /// Marks and nothing else of the drawing.
  [[nodiscard]] bool showsMarksAlone() const noexcept {
    return (layers & ~(1U << static_cast<unsigned>(Layer::kTitle))) ==
           1U << static_cast<unsigned>(Layer::kMarks);
  }
};

}  // namespace quorvan::tool
