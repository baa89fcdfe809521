// Lines and arcs drawn in one go.
#pragma once

#include <cstdint>
#include <vector>

#include <tools/draw/scene/plane_point.h>

namespace quorvan::tool {

struct PathStep {
  enum class Kind : std::uint8_t { kMove, kLine, kArc, kClose };

  Kind kind;
  PlanePoint to;
  PlanePoint center;   // of an arc
  double sweep = 0.0;  // of an arc, in radians, to the left above 0
};

class Path {
 public:
  void moveTo(PlanePoint point) { m_steps.push_back({PathStep::Kind::kMove, point, {}}); }
  void lineTo(PlanePoint point) { m_steps.push_back({PathStep::Kind::kLine, point, {}}); }
  /// From where the path is, about `center`.
  void arcTo(PlanePoint center, double sweep);
  void close() { m_steps.push_back({PathStep::Kind::kClose, {}, {}}); }

  /// An arc over the middle point to the end; a line where the three lie on one.
  void arcThrough(PlanePoint middle, PlanePoint end);

  /// The points joined by lines, with corners rounded to `radius` as far as the lines allow.
  void addRounded(const std::vector<PlanePoint>& points, bool isClosed, double radius);

  /// On to the corner, which is rounded to `radius`, in the direction of `next`.
  void bendAt(PlanePoint corner, PlanePoint next, double radius);

  /// Goes on with the other path, which begins where this one is.
  void append(const Path& other);

  [[nodiscard]] const std::vector<PathStep>& steps() const noexcept { return m_steps; }
  [[nodiscard]] PlanePoint end() const noexcept;
  [[nodiscard]] bool isFinite() const noexcept;

 private:
  void addCorner(PlanePoint before, PlanePoint corner, PlanePoint after, double radius,
                 double room);

  std::vector<PathStep> m_steps;
};

}  // namespace quorvan::tool
