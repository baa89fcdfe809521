#include <tools/draw/dxf/series_blocks.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace quorvan::tool {

namespace {

constexpr double kLeastStep = 1e-6;
constexpr double kFineness = 1e-14;  // of the coordinates

// The groups by the cells of a grid in which the ways of their first bars lie.
class Groups {
 public:
  Groups(double step, std::vector<AlikeBars>& groups) : m_step(step), m_groups(groups) {}

  AlikeBars& groupOf(PlanePoint way) {
    if (!m_groups.empty() && isAlike(m_groups[m_last].way, way)) {
      return m_groups[m_last];
    }
    const Cell cell{std::floor(way.x / m_step), std::floor(way.y / m_step)};
    if (const std::size_t* const known = findAround(cell, way)) {
      m_last = *known;
      return m_groups[m_last];
    }
    m_last = m_groups.size();
    m_cells.emplace(cell, m_last);
    m_groups.push_back({way, {}});
    return m_groups.back();
  }

 private:
  using Cell = std::pair<double, double>;

  [[nodiscard]] bool isAlike(PlanePoint one, PlanePoint other) const {
    return std::abs(one.x - other.x) <= m_step && std::abs(one.y - other.y) <= m_step;
  }

  // Ways that are alike may lie on two sides of a line of the grid.
  [[nodiscard]] const std::size_t* findAround(Cell cell, PlanePoint way) const {
    for (const double x : {0.0, -1.0, 1.0}) {
      for (const double y : {0.0, -1.0, 1.0}) {
        const auto known = m_cells.find({cell.first + x, cell.second + y});
        if (known != m_cells.end() && isAlike(m_groups[known->second].way, way)) {
          return &known->second;
        }
      }
    }
    return nullptr;
  }

  double m_step;
  std::vector<AlikeBars>& m_groups;
  std::map<Cell, std::size_t> m_cells;
  std::size_t m_last = 0;
};

}  // namespace

std::vector<AlikeBars> alikeBarsOf(const std::vector<BulgePath>& bars) {
  double farthest = 0.0;
  for (const BulgePath& bar : bars) {
    for (const BulgeVertex& end : bar.vertices) {
      farthest = std::max({farthest, std::abs(end.at.x), std::abs(end.at.y)});
    }
  }
  std::vector<AlikeBars> found;
  Groups groups(std::max(kLeastStep, kFineness * farthest), found);
  for (const BulgePath& bar : bars) {
    if (bar.vertices.size() == 2) {
      const PlanePoint from = bar.vertices[0].at;
      groups.groupOf(bar.vertices[1].at - from).places.push_back(from);
    }
  }
  return found;
}

}  // namespace quorvan::tool
