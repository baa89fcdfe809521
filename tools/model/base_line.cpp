#include <tools/model/base_line.h>

#include <cmath>

namespace quorvan::tool {

BaseLine::BaseLine(const Repartition& series) : m_origin(series.start) {
  constexpr double kNone = 1e-6;
  constexpr double kLongestWay = 2.0;
  const double x = series.end.x - series.start.x;
  const double y = series.end.y - series.start.y;
  const bool isPoint = std::hypot(x, y) < kNone;
  m_isAlongX =
      isPoint ? std::abs(series.axis.x) > std::abs(series.axis.y) : std::abs(x) > std::abs(y);
  const double axis = m_isAlongX ? series.axis.x : series.axis.y;
  m_length = m_isAlongX ? x : y;
  // The axis of straight bars points to the right or upwards; that of others, of length 1, from
  // bar to bar.
  const bool isWay =
      std::hypot(series.axis.x, series.axis.y) < kLongestWay && std::abs(axis) > kNone;
  m_way = (isWay ? axis : m_length) < 0.0 ? -1.0 : 1.0;
  m_side = axis < 0.0 ? -1.0 : 1.0;
  m_drift = isWay ? (m_isAlongX ? series.axis.y : series.axis.x) / axis : 0.0;
}

std::optional<BaseLine::Slope> BaseLine::slopeOf(const Coordinates& direction) const {
  constexpr double kLeastShare = 0.0175;  // the sine of a degree
  const double along = m_isAlongX ? direction.x : direction.y;
  const double across = m_isAlongX ? direction.y : direction.x;
  const double length = std::hypot(direction.x, direction.y, direction.z);
  if (!(std::abs(across) > kLeastShare * length)) {
    return std::nullopt;
  }
  return Slope{along / across, length / std::abs(across)};
}

}  // namespace quorvan::tool
