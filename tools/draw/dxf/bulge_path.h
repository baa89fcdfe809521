// Paths as polylines have them: corners, and between two of them a line or an arc.
#pragma once

#include <vector>

#include <tools/draw/scene/path.h>

namespace quorvan::tool {

/// A corner and the way to the next: the bulge is the tangent of a quarter of the arc's sweep,
/// above 0 for one to the left, 0 for a line.
struct BulgeVertex {
  PlanePoint at;
  double bulge = 0.0;

  friend bool operator==(const BulgeVertex&, const BulgeVertex&) = default;
};

struct BulgePath {
  std::vector<BulgeVertex> vertices;  // none falls on the one before
  bool isClosed = false;              // the last goes on to the first
};

/// The path piece by piece, from each move to the next. An arc of more than half a turn is cut. A
/// piece without extent has one vertex.
std::vector<BulgePath> bulgePathsOf(const Path& path);

/// One way of a polyline: an arc, or a line, whose sweep is 0.
struct BulgeWay {
  PlanePoint from;
  PlanePoint to;
  PlanePoint center;
  double radius = 0.0;
  double sweep = 0.0;

  [[nodiscard]] bool isArc() const noexcept { return sweep != 0.0; }
};

/// The ways of the path in their order.
std::vector<BulgeWay> waysOf(const BulgePath& path);

}  // namespace quorvan::tool
