#include <tools/draw/dxf/fill_pieces.h>

#include <algorithm>
#include <cmath>

namespace quorvan::tool {

namespace {

// Up to this many corners a polygon is looked at for sides that cross.
constexpr std::size_t kFewCorners = 256;
constexpr double kFlatCorner = 1e-12;  // of the polygon's area
constexpr double kThinBand = 1e-9;     // of its height

double turnOf(PlanePoint a, PlanePoint b, PlanePoint c) {
  return crossOf(b - a, c - a);
}

double areaOf(const std::vector<PlanePoint>& corners) {
  double twice = 0.0;
  for (std::size_t i = 1; i + 1 < corners.size(); ++i) {
    twice += turnOf(corners[0], corners[i], corners[i + 1]);
  }
  return twice / 2.0;
}

bool isConvex(const std::vector<PlanePoint>& quad) {
  const auto turnAt = [&](std::size_t i) {
    return turnOf(quad[i], quad[(i + 1) % 4], quad[(i + 2) % 4]);
  };
  const bool isLeft = turnAt(0) > 0.0;
  for (std::size_t i = 0; i < 4; ++i) {
    const double turn = turnAt(i);
    if (turn == 0.0 || (turn > 0.0) != isLeft) {
      return false;
    }
  }
  return true;
}

std::vector<PlanePoint> withoutRepeats(const std::vector<PlanePoint>& outline) {
  std::vector<PlanePoint> corners;
  for (const PlanePoint point : outline) {
    if (corners.empty() || !(corners.back() == point)) {
      corners.push_back(point);
    }
  }
  while (corners.size() > 1 && corners.front() == corners.back()) {
    corners.pop_back();
  }
  return corners;
}

// Where two sides cross within both of them.
bool crossing(PlanePoint a, PlanePoint b, PlanePoint c, PlanePoint d, PlanePoint& at) {
  const double first = turnOf(c, d, a);
  const double second = turnOf(c, d, b);
  const double third = turnOf(a, b, c);
  const double fourth = turnOf(a, b, d);
  if (!(first * second < 0.0 && third * fourth < 0.0)) {
    return false;
  }
  at = a + (b - a) * (first / (first - second));
  return true;
}

std::vector<PlanePoint> crossingsOf(const std::vector<PlanePoint>& corners) {
  std::vector<PlanePoint> found;
  const std::size_t count = corners.size();
  PlanePoint at;
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t k = i + 2; k < count; ++k) {
      if (crossing(corners[i], corners[i + 1], corners[k], corners[(k + 1) % count], at)) {
        found.push_back(at);
      }
    }
  }
  return found;
}

// A polygon without crossings, of which triangles are cut off corner by corner.
class EarCutter {
 public:
  EarCutter(std::vector<PlanePoint> corners, std::int64_t& work)
      : m_corners(std::move(corners)), m_work(work) {
    const double area = areaOf(m_corners);
    if (area < 0.0) {
      std::ranges::reverse(m_corners);
    }
    m_flat = 2.0 * kFlatCorner * std::abs(area);
    const std::size_t count = m_corners.size();
    for (std::size_t i = 0; i < count; ++i) {
      m_before.push_back((i + count - 1) % count);
      m_after.push_back((i + 1) % count);
    }
    m_isInner.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
      m_isInner[i] = turnAt(i) < 0.0;
      if (m_isInner[i]) {
        m_inner.push_back(i);
      }
    }
  }

  // False where no corner can be cut off any more, or the work has run out.
  bool cut(std::vector<FillPiece>& pieces) {
    std::size_t left = m_corners.size();
    std::size_t tried = 0;
    for (std::size_t at = 0; left > 3;) {
      if (tried > left || m_work <= 0) {
        return false;
      }
      const double turn = turnAt(at);
      const std::size_t next = m_after[at];
      if (std::abs(turn) <= m_flat || isEar(at, turn)) {
        if (std::abs(turn) > m_flat) {
          add(at, pieces);
        }
        remove(at);
        --left;
        tried = 0;
      } else {
        ++tried;
      }
      at = next;
      m_last = at;
    }
    if (turnAt(m_last) < -m_flat) {
      return false;
    }
    add(m_last, pieces);
    return true;
  }

 private:
  [[nodiscard]] double turnAt(std::size_t i) const {
    return turnOf(m_corners[m_before[i]], m_corners[i], m_corners[m_after[i]]);
  }

  // Only corners that point inwards can lie within a triangle.
  bool isEar(std::size_t i, double turn) {
    if (turn < 0.0) {
      return false;
    }
    const PlanePoint a = m_corners[m_before[i]];
    const PlanePoint b = m_corners[i];
    const PlanePoint c = m_corners[m_after[i]];
    std::erase_if(m_inner, [&](std::size_t k) { return !m_isInner[k]; });
    m_work -= static_cast<std::int64_t>(m_inner.size()) + 1;
    return std::ranges::none_of(m_inner, [&](std::size_t k) {
      const PlanePoint p = m_corners[k];
      return !(p == a) && !(p == b) && !(p == c) && turnOf(a, b, p) >= 0.0 &&
             turnOf(b, c, p) >= 0.0 && turnOf(c, a, p) >= 0.0;
    });
  }

  void add(std::size_t i, std::vector<FillPiece>& pieces) const {
    const PlanePoint last = m_corners[m_after[i]];
    pieces.push_back({m_corners[m_before[i]], m_corners[i], last, last});
  }

  void remove(std::size_t i) {
    m_isInner[i] = false;
    m_after[m_before[i]] = m_after[i];
    m_before[m_after[i]] = m_before[i];
    for (const std::size_t k : {m_before[i], m_after[i]}) {
      m_isInner[k] = m_isInner[k] && turnAt(k) < 0.0;
    }
  }

  std::vector<PlanePoint> m_corners;
  std::int64_t& m_work;
  double m_flat = 0.0;
  std::vector<std::size_t> m_before;
  std::vector<std::size_t> m_after;
  std::vector<bool> m_isInner;
  std::vector<std::size_t> m_inner;
  std::size_t m_last = 0;
};

// A side as it crosses a band.
struct Crossing {
  double below;
  double above;
  int way;
};

std::vector<Crossing> crossingsIn(const std::vector<PlanePoint>& corners, double low, double high) {
  std::vector<Crossing> found;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    PlanePoint a = corners[i];
    PlanePoint b = corners[(i + 1) % corners.size()];
    const int way = a.y < b.y ? 1 : -1;
    if (way < 0) {
      std::swap(a, b);
    }
    if (a.y <= low && b.y >= high && a.y < b.y) {
      const double slope = (b.x - a.x) / (b.y - a.y);
      found.push_back({a.x + (low - a.y) * slope, a.x + (high - a.y) * slope, way});
    }
  }
  std::ranges::sort(found, {}, [](const Crossing& one) { return one.below + one.above; });
  return found;
}

}  // namespace

bool FillCutter::cutEars(std::vector<PlanePoint> corners, std::vector<FillPiece>& pieces) {
  if (EarCutter(std::move(corners), m_workLeft).cut(pieces)) {
    return true;
  }
  pieces.clear();
  return false;
}

// Between the heights of two corners, the sides do not change places.
void FillCutter::cutBands(const std::vector<PlanePoint>& corners, std::vector<FillPiece>& pieces) {
  std::vector<double> heights;
  heights.reserve(corners.size());
  for (const PlanePoint point : corners) {
    heights.push_back(point.y);
  }
  for (const PlanePoint point : crossingsOf(corners)) {
    heights.push_back(point.y);
  }
  std::ranges::sort(heights);
  const double thin = kThinBand * (heights.back() - heights.front());
  double low = heights.front();
  for (const double high : heights) {
    if (!(high - low > thin)) {
      continue;
    }
    int around = 0;
    Crossing begin{};
    for (const Crossing& side : crossingsIn(corners, low, high)) {
      if (around == 0) {
        begin = side;
      }
      around += side.way;
      if (around == 0) {
        pieces.push_back({PlanePoint{begin.below, low}, PlanePoint{side.below, low},
                          PlanePoint{side.above, high}, PlanePoint{begin.above, high}});
      }
    }
    low = high;
  }
}

bool FillCutter::crossesItself(const std::vector<PlanePoint>& outline) {
  const std::vector<PlanePoint> corners = withoutRepeats(outline);
  const std::size_t count = corners.size();
  if (count < 4 || count > kFewCorners || m_workLeft <= 0) {
    return false;
  }
  m_workLeft -= static_cast<std::int64_t>(count * count);
  return !crossingsOf(corners).empty();
}

std::vector<FillPiece> FillCutter::cut(const std::vector<PlanePoint>& outline, bool& isWhole) {
  isWhole = true;
  std::vector<FillPiece> pieces;
  const std::vector<PlanePoint> corners = withoutRepeats(outline);
  const std::size_t count = corners.size();
  if (count < 3) {
    return pieces;
  }
  if (count == 3) {
    return {{corners[0], corners[1], corners[2], corners[2]}};
  }
  if (count == 4 && isConvex(corners)) {
    return {{corners[0], corners[1], corners[2], corners[3]}};
  }
  const bool hasFew = count <= kFewCorners;
  if (hasFew) {
    m_workLeft -= static_cast<std::int64_t>(count * count);
  }
  if (m_workLeft > 0 && (!hasFew || crossingsOf(corners).empty()) && cutEars(corners, pieces)) {
    return pieces;
  }
  if (m_workLeft > 0 && hasFew) {
    m_workLeft -= static_cast<std::int64_t>(count * count);
    cutBands(corners, pieces);
    return pieces;
  }
  isWhole = false;
  return pieces;
}

}  // namespace quorvan::tool
