#include <tools/model/series_layout.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include <tools/model/base_line.h>

namespace quorvan::tool {

namespace {

constexpr double kSameLength = 0.02;  // of the repeated bar's length
constexpr double kSteepest = 1e3;     // a bar along the base line has no crossing with it

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
  const auto slope = base.slopeOf({to.x - from.x, to.y - from.y, to.z - from.z});
  const double length = distance(from, to);
  for (std::size_t i = 0; slope && i < course.first.size(); ++i) {
    const double there = std::abs(course.first[i] - course.second[i]) * slope->length;
    if (std::abs(there - length) <= kSameLength * length) {
      return slope->along;
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
