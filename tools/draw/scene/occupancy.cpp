#include <tools/draw/scene/occupancy.h>

#include <algorithm>

#include <tools/draw/scene/lettering_metrics.h>
#include <tools/draw/scene/text_width.h>

namespace quorvan::tool {

namespace {

constexpr double kCell = 10.0;           // mm
constexpr double kLargestBox = 50.0;     // mm: what is larger is no obstacle, but a background
constexpr double kFarthest = 1e6;        // mm: nothing there is read
constexpr std::size_t kMostBoxes = 200;  // of one text
constexpr std::size_t kFullCell = 64;    // boxes; such a cell is taken altogether

bool isSensible(const SheetBox& box) {
  const double width = box.most.x - box.least.x;
  const double height = box.most.y - box.least.y;
  return width <= kLargestBox && height <= kLargestBox && std::abs(box.least.x) <= kFarthest &&
         std::abs(box.least.y) <= kFarthest;
}

bool overlap(const SheetBox& a, const SheetBox& b) {
  return a.least.x < b.most.x && b.least.x < a.most.x && a.least.y < b.most.y &&
         b.least.y < a.most.y;
}

// Calls with the number of each cell that the box touches, until one call gives false.
template <class Call>
bool forCells(const SheetBox& box, Call call) {
  const auto cell = [](double place) {
    return static_cast<std::int64_t>(std::floor(place / kCell));
  };
  for (std::int64_t x = cell(box.least.x); x <= cell(box.most.x); ++x) {
    for (std::int64_t y = cell(box.least.y); y <= cell(box.most.y); ++y) {
      if (!call(x * 1000003 + y)) {
        return false;
      }
    }
  }
  return true;
}

}  // namespace

std::vector<SheetBox> boxesOf(const Lettering& text) {
  const double height = std::abs(text.height);
  const double width = textWidth(text.text, height);
  std::vector<SheetBox> boxes;
  if (!(height > 0.0) || !(height <= kLargestBox) || !(width > 0.0)) {
    return boxes;
  }
  const PlanePoint along = turned({1.0, 0.0}, text.angle);
  const PlanePoint up = leftOf(along);
  const double share = text.alignX == AlignX::kCentre  ? 0.5
                       : text.alignX == AlignX::kRight ? 1.0
                                                       : 0.0;
  const PlanePoint begin = baseOf(text) - along * (share * width);
  const bool isLevel = std::abs(along.y) < 1e-6 || std::abs(along.x) < 1e-6;
  const double step = isLevel ? std::min(width, kLargestBox / 2.0) : height;
  for (double at = 0.0; at < width && boxes.size() < kMostBoxes; at += step) {
    const PlanePoint from = begin + along * at;
    const PlanePoint to = begin + along * std::min(at + step, width) + up * height;
    boxes.push_back({{std::min(from.x, to.x), std::min(from.y, to.y)},
                     {std::max(from.x, to.x), std::max(from.y, to.y)}});
  }
  return boxes;
}

bool Occupancy::isFree(const std::vector<SheetBox>& boxes) const {
  return std::ranges::all_of(boxes, [this](const SheetBox& box) {
    return !isSensible(box) || forCells(box, [&](std::int64_t cell) {
      const auto found = m_cells.find(cell);
      return found == m_cells.end() ||
             (found->second.size() < kFullCell &&
              std::ranges::none_of(found->second,
                                   [&](const SheetBox& taken) { return overlap(taken, box); }));
    });
  });
}

void Occupancy::take(const std::vector<SheetBox>& boxes) {
  for (const SheetBox& box : boxes) {
    if (!isSensible(box)) {
      continue;
    }
    forCells(box, [&](std::int64_t cell) {
      std::vector<SheetBox>& taken = m_cells[cell];
      if (taken.size() < kFullCell) {
        taken.push_back(box);
      }
      return true;
    });
  }
}

}  // namespace quorvan::tool
