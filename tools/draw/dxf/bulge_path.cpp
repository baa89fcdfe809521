#include <tools/draw/dxf/bulge_path.h>

#include <cmath>
#include <numbers>

namespace quorvan::tool {

namespace {

constexpr double kNoSweep = 1e-9;

class Cutter {
 public:
  std::vector<BulgePath> cut(const Path& path) {
    for (const PathStep& step : path.steps()) {
      take(step);
    }
    finish();
    return std::move(m_paths);
  }

 private:
  void take(const PathStep& step) {
    switch (step.kind) {
      case PathStep::Kind::kMove:
        finish();
        m_path.vertices.push_back({step.to});
        return;
      case PathStep::Kind::kLine:
        return go(step.to, 0.0);
      case PathStep::Kind::kArc:
        return takeArc(step);
      case PathStep::Kind::kClose:
        m_path.isClosed = true;
        return;
    }
  }

  void takeArc(const PathStep& step) {
    const PlanePoint from = m_path.vertices.back().at;
    const int parts = std::max(
        1, static_cast<int>(std::ceil(std::abs(step.sweep) / std::numbers::pi - kNoSweep)));
    const double sweep = step.sweep / parts;
    const double bulge = std::abs(sweep) > kNoSweep ? std::tan(sweep / 4.0) : 0.0;
    for (int i = 1; i < parts; ++i) {
      go(step.center + turned(from - step.center, sweep * i), bulge);
    }
    go(step.to, bulge);
  }

  void go(PlanePoint to, double bulge) {
    if (to == m_path.vertices.back().at) {
      return;
    }
    m_path.vertices.back().bulge = bulge;
    m_path.vertices.push_back({to});
  }

  void finish() {
    if (m_path.isClosed && m_path.vertices.size() > 1 &&
        m_path.vertices.front().at == m_path.vertices.back().at) {
      m_path.vertices.pop_back();
    }
    if (!m_path.vertices.empty()) {
      m_paths.push_back(std::move(m_path));
    }
    m_path = {};
  }

  BulgePath m_path;
  std::vector<BulgePath> m_paths;
};

}  // namespace

std::vector<BulgePath> bulgePathsOf(const Path& path) {
  return Cutter().cut(path);
}

std::vector<BulgeWay> waysOf(const BulgePath& path) {
  std::vector<BulgeWay> ways;
  const std::size_t count = path.vertices.size();
  for (std::size_t i = 0; i + (path.isClosed ? 0 : 1) < count; ++i) {
    const BulgeVertex& vertex = path.vertices[i];
    BulgeWay way;
    way.from = vertex.at;
    way.to = path.vertices[(i + 1) % count].at;
    if (vertex.bulge != 0.0) {
      const double rise = (1.0 - vertex.bulge * vertex.bulge) / (4.0 * vertex.bulge);
      way.center = (way.from + way.to) * 0.5 + leftOf(way.to - way.from) * rise;
      way.radius = lengthOf(way.from - way.center);
      way.sweep = 4.0 * std::atan(vertex.bulge);
    }
    ways.push_back(way);
  }
  return ways;
}

}  // namespace quorvan::tool
