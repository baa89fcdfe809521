// A drawing on its sheet, before it is written in one form or another. Millimetres of paper, the
// origin at the lower left.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <tools/draw/scene/colors.h>
#include <tools/draw/scene/path.h>
#include <tools/draw/scene/plane_point.h>
#include <tools/draw/scene/sheet_box.h>

namespace quorvan::tool {

/// The kinds of what is drawn, from the lowest to the highest.
enum class Layer : std::uint8_t {
  kFills,
  kMeshes,
  kFormwork,
  kLines,
  kCircles,
  kLinks,
  kBars,
  kEndOn,
  kRepartitions,
  kTexts,
  kMarks,
  kTitle,
};
inline constexpr std::size_t kLayers = 12;

/// "formwork", "bars" and so on.
std::string_view layerName(Layer layer) noexcept;

/// The layer of that name; nothing for any other.
std::optional<Layer> layerNamed(std::string_view name) noexcept;

/// How something is drawn. Nothing is stroked at a width of 0.
struct Style {
  Color color;
  double width = 0.0;
  bool isFilled = false;
  bool isDashed = false;
  bool isOnPaper = false;  // what lies below is blanked: inside a circle, around a text
  bool isBar = false;      // the line is the axis of a bar, and its width that of the bar

  friend bool operator==(const Style&, const Style&) = default;
};

/// Where the text lies on its point.
enum class AlignX : std::uint8_t { kLeft, kCentre, kRight };
enum class AlignY : std::uint8_t { kBase, kMiddle, kTop };

struct Lettering {
  std::string text;
  PlanePoint at;
  double height = 0.0;  // of capitals
  double angle = 0.0;   // radians
  AlignX alignX = AlignX::kLeft;
  AlignY alignY = AlignY::kBase;
};

/// No element.
inline constexpr std::uint32_t kNoElement = 0xFFFFFFFF;

/// One thing that is drawn: a path, a circle or a text.
struct Shape {
  enum class Kind : std::uint8_t { kPath, kCircle, kText };

  Layer layer;
  Kind kind;
  std::uint32_t element = kNoElement;  // its place in the file
  bool isHidden = false;
  Style style;
  Path path;
  PlanePoint center;
  double radius = 0.0;
  Lettering lettering;
};

/// The shape so many times as large about the origin, then moved.
Shape placed(const Shape& shape, double factor, PlanePoint by);

struct Scene {
  double width = 0.0;
  double height = 0.0;
  std::string title;
  std::optional<SheetBox> window;  // the drawing shows nothing beyond it
  std::vector<Shape> shapes;       // by layer, then in the order of the file
};

}  // namespace quorvan::tool
