#include <tools/draw/scene/clipping.h>
#include <tools/draw/scene/occupancy.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include <tools/draw/scene/painted_box.h>

namespace quorvan::tool {

namespace {

constexpr double kMostCells = 8e6;
constexpr int kArcParts = 12;
// Of a text, a line, concrete, a cell each.
constexpr unsigned kCosts[] = {static_cast<unsigned>(Occupancy::kTextCost), 5, 1};
constexpr double kBesideSheet = 200.0;  // the sheet
constexpr double kThinShare = 0.15;     // of the cost of a line or concrete

// What is far from the sheet, or nowhere, is just beside it.
int placeAmong(int count, double place) {
  if (std::isnan(place)) {
    return -2;
  }
  // Rounded down; a call of the function for that would take most of the time of a large drawing.
  const double bounded = std::clamp(place, -2.0, count + 1.0);
  const int whole = static_cast<int>(bounded);
  return bounded < whole ? whole - 1 : whole;
}

int costOf(std::uint8_t cell) {
  const unsigned bits = cell;
  return static_cast<int>((bits & 1U) * kCosts[0] + (bits >> 1U & 1U) * kCosts[1] +
                          (bits >> 2U & 1U) * kCosts[2]);
}

// Of eight cells: each byte has the cost of its cell, and the product adds them all up in its
// highest.
int costOfEight(const std::uint8_t* cells) {
  constexpr std::uint64_t kOneEach = 0x0101010101010101;
  constexpr unsigned kHighest = 56;
  static_assert(8 * (kCosts[0] + kCosts[1] + kCosts[2]) < 256);
  std::uint64_t bits = 0;
  std::memcpy(&bits, cells, sizeof bits);
  const std::uint64_t costs = (bits & kOneEach) * kCosts[0] + (bits >> 1U & kOneEach) * kCosts[1] +
                              (bits >> 2U & kOneEach) * kCosts[2];
  return static_cast<int>(costs * kOneEach >> kHighest);
}

int costOf(const std::uint8_t* cells, int count) {
  int sum = 0;
  for (; count >= 8; count -= 8, cells += 8) {
    sum += costOfEight(cells);
  }
  for (; count > 0; --count, ++cells) {
    sum += costOf(*cells);
  }
  return sum;
}

}  // namespace

Occupancy::Occupancy(double width, double height) {
  if (!(width > 0.0 && height > 0.0 && std::isfinite(width * height))) {
    width = height = 1.0;
  }
  m_cell = std::max(0.5, std::sqrt(width * height / kMostCells));
  m_columns = static_cast<int>(std::min(width / m_cell, kMostCells)) + 1;
  m_rows = static_cast<int>(std::min(height / m_cell, kMostCells / m_columns)) + 1;
  m_cells.resize(static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows));
}

int Occupancy::column(double x) const {
  return placeAmong(m_columns, x / m_cell);
}

int Occupancy::row(double y) const {
  return placeAmong(m_rows, y / m_cell);
}

inline void Occupancy::takeAt(int x, int y, Kind kind) {
  if (x >= 0 && y >= 0 && x < m_columns && y < m_rows) {
    m_cells[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_columns) +
            static_cast<std::size_t>(x)] |= static_cast<std::uint8_t>(kind);
  }
}

double Occupancy::costAt(int x, int y) const {
  if (x < 0 || y < 0 || x >= m_columns || y >= m_rows) {
    return kBesideSheet;
  }
  return costOf(m_cells[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_columns) +
                        static_cast<std::size_t>(x)]);
}

// Calls for the cells of points no farther apart than a cell, as far as they lie near the sheet.
template <class Call>
void Occupancy::along(PlanePoint from, PlanePoint to, Call call) const {
  const SheetBox sheet{{-m_cell, -m_cell}, {(m_columns + 1) * m_cell, (m_rows + 1) * m_cell}};
  if (!isFinite(from) || !isFinite(to)) {
    return;
  }
  // Only the part over the sheet is walked.
  const auto part = clippedLine(from, to, sheet);
  if (!part) {
    return;
  }
  const PlanePoint way = part->second - part->first;
  // Nothing here is so long that its square were no number.
  const int parts = static_cast<int>(std::sqrt(way.x * way.x + way.y * way.y) / m_cell) + 1;
  // Cells from one beside the sheet upwards, so that what is cut off is rounded down.
  const PlanePoint begin = part->first * (1.0 / m_cell) + PlanePoint{1.0, 1.0};
  const PlanePoint step = way * (1.0 / (m_cell * parts));
  for (int i = 0; i <= parts; ++i) {
    call(static_cast<int>(begin.x + step.x * i) - 1, static_cast<int>(begin.y + step.y * i) - 1);
  }
}

// Calls for points all over the text.
template <class Call>
void Occupancy::over(const Lettering& text, Call call) const {
  const TextCorners box = cornersOf(text);
  const PlanePoint up = box.corners[3] - box.corners[0];
  const double height = lengthOf(up);
  if (!(height > 0.0) || !(height < 1e4)) {
    return;
  }
  const int parts = static_cast<int>(height / m_cell) + 1;
  for (int i = 0; i <= parts; ++i) {
    const PlanePoint lift = up * (static_cast<double>(i) / parts);
    along(box.corners[0] + lift, box.corners[1] + lift, call);
  }
}

void Occupancy::take(const SheetBox& box, Kind kind) {
  if (box.isEmpty()) {
    return;
  }
  takeCells(column(box.least.x), column(box.most.x), row(box.least.y), row(box.most.y), kind);
}

void Occupancy::takeCells(int left, int right, int low, int high, Kind kind) {
  left = std::max(0, left);
  right = std::min(m_columns - 1, right);
  high = std::min(m_rows - 1, high);
  for (int y = std::max(0, low); y <= high; ++y) {
    std::uint8_t* const cells =
        m_cells.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(m_columns);
    for (int x = left; x <= right; ++x) {
      cells[x] |= static_cast<std::uint8_t>(kind);
    }
  }
}

void Occupancy::take(const Lettering& text) {
  over(text, [this](int x, int y) { takeAt(x, y, Kind::kText); });
}

template <class Call>
void Occupancy::alongArc(PlanePoint from, const PathStep& arc, Call call) const {
  const PlanePoint turn = turned({1.0, 0.0}, arc.sweep / kArcParts);
  PlanePoint out = from - arc.center;
  for (int i = 0; i < kArcParts; ++i) {
    const PlanePoint next{out.x * turn.x - out.y * turn.y, out.x * turn.y + out.y * turn.x};
    along(arc.center + out, arc.center + next, call);
    out = next;
  }
}

template <class Call>
void Occupancy::along(const Path& path, Call call) const {
  PlanePoint at;
  PlanePoint start;
  for (const PathStep& step : path.steps()) {
    if (step.kind == PathStep::Kind::kMove) {
      start = step.to;
    } else if (step.kind == PathStep::Kind::kClose) {
      along(at, start, call);
      continue;
    } else if (step.kind == PathStep::Kind::kLine) {
      along(at, step.to, call);
    } else {
      alongArc(at, step, call);
    }
    at = step.to;
  }
}

void Occupancy::take(const Path& path, Kind kind, double width) {
  constexpr double kFarthest = 20.0;  // cells: a pen of 20 mm
  const double cells = width / 2.0 / m_cell;
  const int reach = cells > 0.0 ? static_cast<int>(std::min(cells, kFarthest)) : 0;
  if (reach == 0) {
    return along(path, [&](int x, int y) { takeAt(x, y, kind); });
  }
  // Squares that overlap by half, along the path.
  int passed = reach;
  along(path, [&](int x, int y) {
    if (++passed > reach) {
      passed = 0;
      takeCells(x - reach, x + reach, y - reach, y + reach, kind);
    }
  });
}

void Occupancy::fill(const std::vector<PlanePoint>& outline, Kind kind) {
  SheetBox box = SheetBox::none();
  for (const PlanePoint point : outline) {
    box.include(point);
  }
  if (box.isEmpty() || !isFinite(box.least) || !isFinite(box.most)) {
    return;
  }
  std::vector<double> crossings;
  for (int y = std::max(0, row(box.least.y)); y <= std::min(m_rows - 1, row(box.most.y)); ++y) {
    const double level = (y + 0.5) * m_cell;
    crossings.clear();
    for (std::size_t i = 0; i < outline.size(); ++i) {
      const PlanePoint a = outline[i];
      const PlanePoint b = outline[(i + 1) % outline.size()];
      if ((a.y > level) != (b.y > level)) {
        crossings.push_back(a.x + (b.x - a.x) * (level - a.y) / (b.y - a.y));
      }
    }
    std::ranges::sort(crossings);
    for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
      const int last = std::min(m_columns - 1, column(crossings[i + 1]));
      for (int x = std::max(0, column(crossings[i])); x <= last; ++x) {
        takeAt(x, y, kind);
      }
    }
  }
}

double Occupancy::cost(const SheetBox& box, double most) const {
  const int left = column(box.least.x);
  const int right = column(box.most.x);
  const int high = row(box.most.y);
  const int first = std::max(left, 0);
  const int last = std::min(right, m_columns - 1);
  const int beside = right - left - std::max(last - first, -1);
  double sum = 0.0;
  for (int y = row(box.least.y); y <= high && sum < most; ++y) {
    if (y < 0 || y >= m_rows) {
      sum += kBesideSheet * (right - left + 1);
      continue;
    }
    const std::uint8_t* const cells =
        m_cells.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(m_columns);
    sum += costOf(cells + first, last - first + 1) + kBesideSheet * beside;
  }
  return sum;
}

double Occupancy::cost(const Lettering& text) const {
  SheetBox box = SheetBox::none();
  for (const PlanePoint corner : cornersOf(text).corners) {
    box.include(corner);
  }
  double sum = 0.0;
  // What lies beside the sheet is not walked over.
  if (box.least.x < 0.0 || box.least.y < 0.0 || box.most.x > m_columns * m_cell ||
      box.most.y > m_rows * m_cell) {
    sum = kBesideSheet * (box.width() + box.height());
  }
  over(text, [&](int x, int y) { sum += costAt(x, y); });
  return sum;
}

double Occupancy::cost(PlanePoint from, PlanePoint to) const {
  double sum = 0.0;
  along(from, to, [&](int x, int y) {
    const double cost = costAt(x, y);
    sum += cost < kTextCost ? kThinShare * cost : cost;
  });
  return sum;
}

}  // namespace quorvan::tool
