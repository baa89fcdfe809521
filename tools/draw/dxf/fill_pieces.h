// A filled polygon in pieces of four corners.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include <tools/draw/scene/plane_point.h>

namespace quorvan::tool {

/// Four corners in turn; of a triangle the last two are the same.
using FillPiece = std::array<PlanePoint, 4>;

/// Cuts polygons of one drawing, with so much work altogether that the drawing as a whole costs
/// what it is long.
class FillCutter {
 public:
  /// The pieces cover what the outline goes round, also where it crosses itself, and do not
  /// overlap. None where the outline encloses nothing. `isWhole` is false, and there are no pieces,
  /// for one that is too intricate to be cut.
  std::vector<FillPiece> cut(const std::vector<PlanePoint>& outline, bool& isWhole);

  /// Whether the outline crosses itself; false where it has too many corners to find out.
  bool crossesItself(const std::vector<PlanePoint>& outline);

 private:
  bool cutEars(std::vector<PlanePoint> corners, std::vector<FillPiece>& pieces);
  void cutBands(const std::vector<PlanePoint>& corners, std::vector<FillPiece>& pieces);

  std::int64_t m_workLeft = 50'000'000;
};

}  // namespace quorvan::tool
