#include <tools/model/series_layout.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace quorvan::tool {

namespace {

constexpr double kEven = 1e-6;        // of a length: below it two are equal
constexpr double kSameLength = 0.02;  // of the repeated bar's length
constexpr double kSteepest = 1e3;     // a bar along the base line has no crossing with it

// The series in coordinates of its base line: `across` to its left, `along` in its direction.
class BaseLine {
 public:
  explicit BaseLine(const Repartition& series) : m_origin(series.start) {
    const double x = series.end.x - series.start.x;
    const double y = series.end.y - series.start.y;
    const bool isPoint = std::hypot(x, y) < kEven;
    m_isAlongX =
        isPoint ? std::abs(series.axis.x) > std::abs(series.axis.y) : std::abs(x) > std::abs(y);
    const double axis = m_isAlongX ? series.axis.x : series.axis.y;
    m_length = m_isAlongX ? x : y;
    // The axis of straight bars points to the right or upwards; that of others, of length 1, from
    // bar to bar.
    const bool isWay = std::hypot(series.axis.x, series.axis.y) < 2.0 && std::abs(axis) > kEven;
    m_way = (isWay ? axis : m_length) < 0.0 ? -1.0 : 1.0;
    m_side = axis < 0.0 ? -1.0 : 1.0;
    m_drift = isWay ? (m_isAlongX ? series.axis.y : series.axis.x) / axis : 0.0;
  }

  // The distance of the file, positive to the left of the axis, as a coordinate.
  [[nodiscard]] double across(double distance) const {
    return m_side * (m_isAlongX ? distance : -distance);
  }
  [[nodiscard]] double way() const { return m_way; }
  [[nodiscard]] double length() const { return m_length; }
  // Whether the bars follow each other at an angle to the line, and then how far they move across
  // it for each unit along it.
  [[nodiscard]] bool isSlanted() const { return m_drift != 0.0; }
  [[nodiscard]] double drift() const { return m_drift; }
  [[nodiscard]] double acrossOf(const Coordinates& vector) const {
    return m_isAlongX ? vector.y : vector.x;
  }
  [[nodiscard]] double alongOf(const Coordinates& vector) const {
    return m_isAlongX ? vector.x : vector.y;
  }
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

// The series bar by bar, in the coordinates of its base line.
struct Course {
  std::vector<double> steps;   // of the first points along the line, from that of the first bar
  std::vector<double> first;   // across it
  std::vector<double> second;  // across it
};

double withSignNear(double size, double expected) {
  return expected < 0.0 ? -std::abs(size) : std::abs(size);
}

// Links are filed with the side of their axis on which a point lies, and its distance from the base
// line, which need not be the same side: that follows from where the bars before lie.
Course courseOf(const Repartition& series, const BaseLine& base, std::size_t count) {
  Course course;
  double step = 0.0;
  for (std::size_t i = 0; i < count; ++i) {
    step += i == 0 ? 0.0 : base.way() * series.positions[i - 1];
    double first = base.across(series.top[i]);
    double second = base.across(series.bottom[i]);
    if (i > 0 && base.isSlanted()) {
      first = withSignNear(first, course.first[0] + base.drift() * step);
      second = withSignNear(second, course.second[0] + first - course.first[0]);
    }
    course.steps.push_back(step);
    course.first.push_back(first);
    course.second.push_back(second);
  }
  return course;
}

// How far a bar goes along the base line for each unit across it, as the file alone says it: the
// first points lie on the steps, the last bar's crossing is the end of the base line.
std::optional<double> slopeOfFile(const Course& course, const BaseLine& base) {
  const double rise = course.first.front() - course.first.back();
  const double steps = course.steps.back();
  if (!(std::abs(rise) > 1e-4 * (1.0 + std::abs(steps)))) {
    return std::nullopt;
  }
  return (base.length() - steps) / rise;
}

// The slope of the repeated bar, if a bar of the series at that slope is as long.
std::optional<double> slopeOfBar(const Course& course, const Bar* bar, const BaseLine& base) {
  if (bar == nullptr || bar->isLink() || bar->line.size() != 2) {
    return std::nullopt;
  }
  const Coordinates& from = bar->line.front();
  const Coordinates& to = bar->line.back();
  const Coordinates way{to.x - from.x, to.y - from.y, 0.0};
  if (!(std::abs(base.acrossOf(way)) > kEven)) {
    return std::nullopt;
  }
  const double slope = base.alongOf(way) / base.acrossOf(way);
  const double length = distance(from, to);
  for (std::size_t i = 0; i < course.first.size(); ++i) {
    const double there = std::abs(course.first[i] - course.second[i]) * std::hypot(1.0, slope);
    if (std::abs(there - length) <= kSameLength * length) {
      return slope;
    }
  }
  return std::nullopt;
}

double slopeOf(const Course& course, const Bar* repeated, const BaseLine& base) {
  std::optional<double> slope = slopeOfFile(course, base);
  if (!slope) {
    slope = slopeOfBar(course, repeated, base);
  }
  return slope && std::abs(*slope) < kSteepest ? *slope : 0.0;
}

}  // namespace

SeriesLayout layOut(const Repartition& series, const Bar* repeated, std::size_t most) {
  SeriesLayout layout;
  const std::size_t count =
      std::min({series.top.size(), series.bottom.size(), series.positions.size() + 1, most});
  if (!series.hasLine() || count == 0) {
    return layout;
  }
  const BaseLine base(series);
  const Course course = courseOf(series, base, count);
  const double slope = slopeOf(course, repeated, base);
  const double stretch = std::hypot(1.0, slope);
  // The first bar passes through the middle, which is the origin.
  const double begin = slope * course.first[0];
  for (std::size_t i = 0; i < count; ++i) {
    const double at = begin + course.steps[i];
    const double width = course.second[i] - course.first[i];
    layout.bars.push_back(
        {base.point(at, course.first[i]), base.point(at + slope * width, course.second[i])});
    // How far the bar's line lies from the first one's, square to them.
    const double apart = (at - slope * course.first[i]) / stretch;
    layout.crossings.push_back(base.point(apart / stretch, -apart * slope / stretch));
    if (i > 0) {
      layout.spacings.push_back(distance(layout.crossings[i - 1], layout.crossings[i]));
    }
  }
  return layout;
}

std::vector<double> statedSpacings(const Repartition& series, const Bar* repeated) {
  return series.hasLine() ? layOut(series, repeated).spacings : series.spacings();
}

}  // namespace quorvan::tool
