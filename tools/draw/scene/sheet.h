// The sheet, and where the drawing lies on it.
#pragma once

#include <optional>
#include <string>

#include <tools/draw/scene/draw_options.h>
#include <tools/draw/scene/plane_point.h>
#include <tools/draw/scene/scale_choice.h>
#include <tools/draw/scene/sheet_box.h>
#include <tools/model/item_value.h>

namespace quorvan::tool {

/// Room for the title block along the lower edge, and around everything.
inline constexpr double kMargin = 8.0;
inline constexpr double kTitleHeight = 12.0;

/// What is to lie on the sheet, in millimetres of what the drawing shows.
struct SheetContents {
  SheetBox box = SheetBox::none();
  ScaleHints hints;
  double around = 0.0;  // room for labels on every side, in mm of paper
};

class Sheet {
 public:
  /// With neither sheet nor scale given, the scale is that of the drawing's lettering, and the
  /// sheet the smallest usual one; one made around the drawing where it has a frame of its own or
  /// is too large. Without lettering: A3 and the largest usual scale at which the drawing goes on
  /// it. With a sheet alone: the scale of the lettering, or the largest that fits. With a scale
  /// alone: a sheet around the drawing.
  Sheet(const SheetContents& contents, const DrawOptions& options);

  /// Without paper: a millimetre is one of what the drawing shows, and the origin its own.
  static Sheet natural(const DrawOptions& options);
  /// Without paper, in the drawing's own unit, and the origin its own.
  static Sheet inDrawingUnits(const DrawOptions& options);

  /// Whether there is paper, on which a line needs a width to be seen.
  [[nodiscard]] bool isPaper() const noexcept { return m_isPaper; }

  [[nodiscard]] double width() const noexcept { return m_size.width; }
  [[nodiscard]] double height() const noexcept { return m_size.height; }
  /// 25 for 1:25.
  [[nodiscard]] double scale() const noexcept { return m_scale; }
  /// Millimetres of paper for one unit of the drawing.
  [[nodiscard]] double factor() const noexcept { return m_factor; }

  /// Millimetres of what the drawing shows for one unit of it.
  [[nodiscard]] double unit() const noexcept { return m_unit; }
  /// So many millimetres of what the drawing shows, on the sheet.
  [[nodiscard]] double ofMillimetres(double length) const noexcept {
    return length / m_unit * m_factor;
  }
  /// Whether there is a strip with legend and title block below the drawing.
  [[nodiscard]] bool hasTitle() const noexcept { return m_hasTitle; }
  /// Where the middle of the drawing lies: in the middle of the paper above the strip.
  [[nodiscard]] PlanePoint middle() const noexcept;
  /// Where the drawing may be: the paper but for its edge, above the strip.
  [[nodiscard]] SheetBox room() const noexcept;

  [[nodiscard]] PlanePoint place(const Coordinates& point) const noexcept;
  [[nodiscard]] PlanePoint direction(const Coordinates& vector) const noexcept;

 private:
  Sheet(Plane plane, double unit) : m_plane(plane), m_unit(unit), m_factor(unit) {}

  [[nodiscard]] double stripHeight() const noexcept;
  [[nodiscard]] PlanePoint roomOn(SheetSize size) const noexcept;
  [[nodiscard]] PlanePoint sizeAt(double scale, const SheetContents& contents) const noexcept;
  void choose(const SheetContents& contents, const DrawOptions& options);
  void chooseSheet(const SheetContents& contents);
  void makeAround(const SheetContents& contents);
  [[nodiscard]] PlanePoint projected(const Coordinates& point) const noexcept;

  Plane m_plane;
  SheetSize m_size{420.0, 297.0};
  double m_unit = 1.0;
  double m_scale = 1.0;
  double m_factor = 1.0;
  bool m_hasTitle = true;
  bool m_isPaper = false;
  PlanePoint m_origin;  // of the drawing, on the sheet
};

/// The size by name ("A3", "A3 upright" as "A3u", "630x297"); nothing for any other text.
std::optional<SheetSize> sheetNamed(const std::string& name);

}  // namespace quorvan::tool
