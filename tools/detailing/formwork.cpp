#include <tools/detailing/formwork.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <utility>

#include <tools/draw/scene/path.h>

namespace quorvan::tool {

namespace {

constexpr double kMeeting = 0.1;  // mm
constexpr double kChord = 0.05;   // mm that a chord may miss its arc by
constexpr double kMostChords = 500.0;
constexpr double kFarthest = 1e12;  // mm: beyond it nothing is concrete

PlanePoint planePoint(const Coordinates& point, const LengthUnit& unit) {
  return {unit.millimetres(point.x), unit.millimetres(point.y)};
}

bool isNear(PlanePoint point) {
  return std::abs(point.x) < kFarthest && std::abs(point.y) < kFarthest;
}

// The points behind the first of a step of a path.
std::vector<PlanePoint> chordsOf(PlanePoint from, const PathStep& step) {
  std::vector<PlanePoint> points;
  if (step.kind == PathStep::Kind::kArc) {
    const double radius = lengthOf(from - step.center);
    const double most = 2.0 * std::acos(std::max(0.0, 1.0 - kChord / std::max(radius, kChord)));
    const double wanted = std::abs(step.sweep) / most;
    const int parts = static_cast<int>(wanted < kMostChords ? wanted + 1.0 : kMostChords);
    for (int i = 1; i < parts; ++i) {
      points.push_back(step.center + turned(from - step.center, step.sweep * i / parts));
    }
  }
  points.push_back(step.to);
  return points;
}

std::vector<PlanePoint> pointsOf(const Segment& segment, const LengthUnit& unit) {
  const PlanePoint from = planePoint(segment.start, unit);
  const PlanePoint to = planePoint(segment.end, unit);
  std::vector<PlanePoint> points{from};
  if (segment.bulge == Coordinates()) {
    points.push_back(to);
    return points;
  }
  Path path;
  path.moveTo(from);
  path.arcThrough((from + to) * 0.5 + planePoint(segment.bulge, unit), to);
  for (const PlanePoint point : chordsOf(from, path.steps().back())) {
    points.push_back(point);
  }
  return points;
}

// The outlines by their ends: each end is a number, and ends that meet are joined.
class Ends {
 public:
  std::uint32_t numberOf(PlanePoint point) {
    const std::pair key(std::llround(point.x / kMeeting), std::llround(point.y / kMeeting));
    const auto [known, isNew] =
        m_numbers.try_emplace(key, static_cast<std::uint32_t>(m_parents.size()));
    if (isNew) {
      m_parents.push_back(known->second);
      m_degrees.push_back(0);
    }
    ++m_degrees[known->second];
    return known->second;
  }
  std::uint32_t outlineOf(std::uint32_t end) {
    while (m_parents[end] != end) {
      m_parents[end] = m_parents[m_parents[end]];
      end = m_parents[end];
    }
    return end;
  }
  void join(std::uint32_t one, std::uint32_t other) {
    m_parents[outlineOf(one)] = outlineOf(other);
  }

  // By outline, whether every end of it is one of two.
  std::vector<bool> closedOutlines() {
    std::vector<bool> closed(m_parents.size(), true);
    for (std::uint32_t end = 0; end < m_parents.size(); ++end) {
      if (m_degrees[end] != 2) {
        closed[outlineOf(end)] = false;
      }
    }
    return closed;
  }

 private:
  std::map<std::pair<std::int64_t, std::int64_t>, std::uint32_t> m_numbers;
  std::vector<std::uint32_t> m_parents;
  std::vector<std::uint32_t> m_degrees;
};

}  // namespace

void PlaneBox::include(PlanePoint point) noexcept {
  least = {std::min(least.x, point.x), std::min(least.y, point.y)};
  most = {std::max(most.x, point.x), std::max(most.y, point.y)};
}

bool PlaneBox::isAround(PlanePoint point) const noexcept {
  return point.x >= least.x && point.x <= most.x && point.y >= least.y && point.y <= most.y;
}

Formwork::Formwork(const std::vector<Segment>& segments, const LengthUnit& unit, std::size_t effort)
    : m_unit(unit), m_effort(effort) {
  joinOutlines(segments);
  if (!m_lines.empty()) {
    buildGrid();
  }
}

void Formwork::joinOutlines(const std::vector<Segment>& segments) {
  Ends ends;
  for (const Segment& segment : segments) {
    const std::vector<PlanePoint> points = pointsOf(segment, m_unit);
    if (!std::ranges::all_of(points, isNear)) {
      continue;
    }
    const std::uint32_t first = ends.numberOf(points.front());
    ends.join(first, ends.numberOf(points.back()));
    for (std::size_t i = 1; i < points.size(); ++i) {
      m_lines.push_back({points[i - 1], points[i], first});
    }
  }
  m_isClosed = ends.closedOutlines();
  for (FormworkLine& line : m_lines) {
    line.outline = ends.outlineOf(line.outline);
    if (!m_isClosed[line.outline]) {
      if (m_open.empty()) {
        m_open.push_back({line.from, line.from});
      }
      m_open.front().include(line.from);
      m_open.front().include(line.to);
    }
  }
  m_crossings.assign(m_isClosed.size(), 0);
}

void Formwork::buildGrid() {
  m_box = {m_lines.front().from, m_lines.front().from};
  for (const FormworkLine& line : m_lines) {
    m_box.include(line.from);
    m_box.include(line.to);
  }
  m_cells =
      std::clamp(static_cast<int>(std::sqrt(static_cast<double>(m_lines.size()))), 1, kMostCells);
  const PlanePoint size = m_box.most - m_box.least;
  m_cell = std::max({size.x, size.y, kMeeting}) / m_cells;
  m_grid.resize(static_cast<std::size_t>(m_cells) * static_cast<std::size_t>(m_cells));
  m_visits.assign(m_lines.size(), 0);
  for (std::uint32_t line = 0; line < m_lines.size(); ++line) {
    enter(line);
  }
}

int Formwork::cellOf(double value, double least) const noexcept {
  return static_cast<int>(std::clamp((value - least) / m_cell, 0.0, m_cells - 1.0));
}

// Into every cell that the line runs through, and those that it touches.
void Formwork::enter(std::uint32_t line) {
  const auto& [from, to, outline] = m_lines[line];
  const double margin = m_cell * 1e-6;
  const double rise = to.y - from.y;
  const int last = cellOf(std::max(from.y, to.y) + margin, m_box.least.y);
  for (int row = cellOf(std::min(from.y, to.y) - margin, m_box.least.y); row <= last; ++row) {
    double begin = 0.0;
    double end = 1.0;
    if (std::abs(rise) > margin) {
      const double low = m_box.least.y + row * m_cell;
      begin = std::clamp((low - margin - from.y) / rise, 0.0, 1.0);
      end = std::clamp((low + m_cell + margin - from.y) / rise, 0.0, 1.0);
    }
    const double one = std::lerp(from.x, to.x, begin);
    const double other = std::lerp(from.x, to.x, end);
    const int column = cellOf(std::max(one, other) + margin, m_box.least.x);
    for (int at = cellOf(std::min(one, other) - margin, m_box.least.x); at <= column; ++at) {
      m_grid[placeOf(row, at)].push_back(line);
    }
  }
}

bool Formwork::isAround(PlanePoint point) const {
  if (!m_open.empty() && m_open.front().isAround(point)) {
    return true;
  }
  if (m_lines.empty() || !m_box.isAround(point)) {
    return false;
  }
  // Outlines that a ray to the right crosses an odd number of times lie around the point.
  std::vector<std::uint32_t> met;
  visit({point, {m_box.most.x, point.y}}, [&](const FormworkLine& line) {
    if (m_isClosed[line.outline] && (line.from.y <= point.y) != (line.to.y <= point.y)) {
      const double share = (point.y - line.from.y) / (line.to.y - line.from.y);
      if (std::lerp(line.from.x, line.to.x, share) > point.x) {
        ++m_crossings[line.outline];
        met.push_back(line.outline);
      }
    }
  });
  bool isAround = false;
  for (const std::uint32_t outline : met) {
    isAround = isAround || m_crossings[outline] % 2 == 1;
  }
  for (const std::uint32_t outline : met) {
    m_crossings[outline] = 0;
  }
  return isAround;
}

}  // namespace quorvan::tool
