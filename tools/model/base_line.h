// The line from which the bars of a repartition are measured.
#pragma once

#include <optional>

#include <tools/model/repartition.h>

namespace quorvan::tool {

/// It runs along x or y through the middle of the first bar. A series lies in its coordinates:
/// `along` in its direction, `across` to its left.
class BaseLine {
 public:
  explicit BaseLine(const Repartition& series);

  /// The distance of the file, positive to the left of the axis, as a coordinate.
  [[nodiscard]] double across(double distance) const {
    return m_side * (m_isAlongX ? distance : -distance);
  }
  /// 1 or -1: which way the bars follow each other.
  [[nodiscard]] double way() const { return m_way; }
  /// From the first bar to where the last one crosses the line.
  [[nodiscard]] double length() const { return m_length; }
  /// Whether the bars follow each other at an angle to the line, and then how far they move across
  /// it for each unit along it.
  [[nodiscard]] bool isSlanted() const { return m_drift != 0.0; }
  [[nodiscard]] double drift() const { return m_drift; }

  /// How far a bar of that direction goes along the line, and how long it is, for each unit across
  /// it. None for one within a degree of the line: it was drawn in another view.
  struct Slope {
    double along;
    double length;
  };
  [[nodiscard]] std::optional<Slope> slopeOf(const Coordinates& direction) const;

  [[nodiscard]] Coordinates point(double along, double across) const {
    return m_isAlongX ? Coordinates{m_origin.x + along, m_origin.y + across, m_origin.z}
                      : Coordinates{m_origin.x + across, m_origin.y + along, m_origin.z};
  }

 private:
  Coordinates m_origin;
  bool m_isAlongX = false;
  double m_length = 0.0;
  double m_way = 1.0;
  double m_side = 1.0;
  double m_drift = 0.0;
};

}  // namespace quorvan::tool
