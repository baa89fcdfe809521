// The sheet, and where the drawing lies on it.
#pragma once

#include <optional>
#include <string>

#include <tools/draw/scene/draw_options.h>
#include <tools/draw/scene/plane_point.h>
#include <tools/model/extents.h>

namespace quorvan::tool {

/// Room for the title block along the lower edge, and around everything.
inline constexpr double kMargin = 8.0;
inline constexpr double kTitleHeight = 12.0;

class Sheet {
 public:
  /// With neither sheet nor scale given: A3 and the largest usual scale at which the drawing goes
  /// on it. With a sheet alone: that scale for it. With a scale alone: a sheet around the drawing.
  Sheet(const std::optional<Extents>& extents, const DrawOptions& options);

  [[nodiscard]] double width() const noexcept { return m_size.width; }
  [[nodiscard]] double height() const noexcept { return m_size.height; }
  /// 25 for 1:25.
  [[nodiscard]] double scale() const noexcept { return m_scale; }
  /// Millimetres of paper for one unit of the drawing.
  [[nodiscard]] double factor() const noexcept { return m_factor; }

  [[nodiscard]] PlanePoint place(const Coordinates& point) const noexcept;
  [[nodiscard]] PlanePoint direction(const Coordinates& vector) const noexcept;

 private:
  [[nodiscard]] PlanePoint projected(const Coordinates& point) const noexcept;

  Plane m_plane;
  SheetSize m_size{420.0, 297.0};
  double m_scale = 1.0;
  double m_factor = 1.0;
  PlanePoint m_origin;  // of the drawing, on the sheet
};

/// The size by name ("A3", "A3 upright" as "A3u", "630x297"); nothing for any other text.
std::optional<SheetSize> sheetNamed(const std::string& name);

}  // namespace quorvan::tool
