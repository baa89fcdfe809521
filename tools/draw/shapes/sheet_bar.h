// A bar on the sheet, as it is bent.
#pragma once

#include <vector>

#include <tools/bending/bent_bar.h>
#include <tools/draw/shapes/hooks.h>
#include <tools/draw/shapes/shape_sink.h>

namespace quorvan::tool {

/// Bent by the usual rules in the plane of the sheet, in which its hooks are shown whichever way
/// the bar runs. The bars of the bar list and of bending data are bent by the same model.
class SheetBar {
 public:
  /// The bar has at least one point, a circular frame none.
  SheetBar(const Bar& bar, const DrawContext& context);

  /// In mm, not of the sheet.
  [[nodiscard]] const BentBar& bent() const noexcept { return m_bent; }
  /// So many mm of the bar on the sheet.
  [[nodiscard]] double onSheet(double millimetres) const noexcept { return millimetres * m_factor; }

  /// Ends and corners on the sheet, hooks left out.
  [[nodiscard]] std::vector<PlanePoint> axis() const;
  /// The least radius of its bends but for hooks; none of a bar without.
  [[nodiscard]] double radius() const noexcept;
  /// Its hook there, which it has, where the bar ends at `end` and goes on in that direction. Seen
  /// along it the bend goes to the left at 1, to the right at -1.
  [[nodiscard]] HookShape hook(bool atStart, PlanePoint end, PlanePoint direction,
                               double side) const;
  /// The same to the side of the file.
  [[nodiscard]] HookShape hook(bool atStart, PlanePoint end, PlanePoint direction) const;
  /// From tip to tip; empty for a bar without length.
  [[nodiscard]] Path path() const;

 private:
  BentBar m_bent;
  double m_factor;
};

}  // namespace quorvan::tool
