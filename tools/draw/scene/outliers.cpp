#include <tools/draw/scene/outliers.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace quorvan::tool {

namespace {

constexpr double kUsualShare = 0.9;    // of the elements, by size
constexpr double kMuchLarger = 100.0;  // than the largest of these
constexpr double kTooLarge = 30.0;     // than all that belongs together
constexpr double kTooFar = 5.0;        // times the size of the rest
constexpr std::size_t kFew = 10;       // one in so many
constexpr std::size_t kLeastToJudge = 4;
constexpr int kMostCuts = 100;
constexpr double kLargerThanAll = 1e5;  // where there are too few to judge otherwise
constexpr double kHalf = 0.5;

double sizeOf(const SheetBox& box) {
  return std::hypot(box.width(), box.height());
}

double gapBetween(const SheetBox& a, const SheetBox& b) {
  const double x = std::max({0.0, a.least.x - b.most.x, b.least.x - a.most.x});
  const double y = std::max({0.0, a.least.y - b.most.y, b.least.y - a.most.y});
  return std::hypot(x, y);
}

using Boxes = std::vector<ElementBox>;

SheetBox unionOf(Boxes::const_iterator from, Boxes::const_iterator to) {
  SheetBox box = SheetBox::none();
  for (; from != to; ++from) {
    box.include(from->box);
  }
  return box;
}

bool isFew(std::size_t count, std::size_t all) {
  return all >= kLeastToJudge && count <= std::max<std::size_t>(1, all / kFew);
}

// The boxes without the few that lie first and last along the axis: those may be what is cut off.
SheetBox coreOf(Boxes boxes, bool isX) {
  const auto few = static_cast<std::ptrdiff_t>(
      boxes.size() < kLeastToJudge ? 0 : std::max<std::size_t>(1, boxes.size() / kFew));
  const auto place = [isX](const ElementBox& one) {
    const PlanePoint center = one.box.center();
    return std::pair(isX ? center.x : center.y, one.element);
  };
  std::ranges::nth_element(boxes, boxes.begin() + few, {}, place);
  std::ranges::nth_element(boxes.begin() + few, boxes.end() - few, boxes.end(), {}, place);
  return unionOf(boxes.begin() + few, boxes.end() - few);
}

// As large as that share of them are at the most.
double sizeOfMost(const Boxes& boxes, double share) {
  std::vector<double> sizes;
  sizes.reserve(boxes.size());
  for (const ElementBox& one : boxes) {
    sizes.push_back(sizeOf(one.box));
  }
  const auto most =
      sizes.begin() + static_cast<std::ptrdiff_t>(share * static_cast<double>(boxes.size() - 1));
  std::ranges::nth_element(sizes, most);
  return *most;
}

// Cuts off the few at either end of the axis behind a gap that is large beside them and beside the
// rest; up to half of all behind one beside which the rest is nothing. Gives whether it did.
bool trimAlong(Boxes& boxes, bool isX) {
  const auto least = [isX](const SheetBox& box) { return isX ? box.least.x : box.least.y; };
  const auto most = [isX](const SheetBox& box) { return isX ? box.most.x : box.most.y; };
  const double core = sizeOf(coreOf(boxes, isX));
  const SheetBox all = unionOf(boxes.begin(), boxes.end());
  // What remains has more than half of the boxes, and one at least as large as half of them are.
  const double extent = most(all) - least(all);
  if (extent <= kTooFar * core && extent <= kLargerThanAll * sizeOfMost(boxes, kHalf)) {
    return false;  // no gap can be as large
  }
  std::ranges::stable_sort(boxes, {}, [&](const ElementBox& one) { return least(one.box); });
  const std::size_t count = boxes.size();
  std::vector<SheetBox> behind(count + 1, SheetBox::none());
  for (std::size_t i = count; i > 0; --i) {
    behind[i - 1] = behind[i];
    behind[i - 1].include(boxes[i - 1].box);
  }
  const auto isFar = [core](double gap, const SheetBox& cut) {
    return gap > kTooFar * std::max(core, sizeOf(cut));
  };
  const auto isBeyondAll = [](double gap, const SheetBox& rest) {
    return sizeOf(rest) > 0.0 && gap > kLargerThanAll * sizeOf(rest);
  };
  SheetBox before = SheetBox::none();
  for (std::size_t i = 1; i < count; ++i) {
    before.include(boxes[i - 1].box);
    const double gap = least(boxes[i].box) - most(before);
    if ((isFew(i, count) && isFar(gap, before)) || (2 * i < count && isBeyondAll(gap, behind[i]))) {
      boxes.erase(boxes.begin(), boxes.begin() + static_cast<std::ptrdiff_t>(i));
      return true;
    }
    if ((isFew(count - i, count) && isFar(gap, behind[i])) ||
        (2 * (count - i) < count && isBeyondAll(gap, before))) {
      boxes.resize(i);
      return true;
    }
  }
  return false;
}

}  // namespace

Belonging belongsTogether(Boxes boxes) {
  Belonging result;
  std::vector<std::uint32_t> all;
  for (const ElementBox& one : boxes) {
    all.push_back(one.element);
  }
  std::erase_if(boxes, [](const ElementBox& one) { return !std::isfinite(sizeOf(one.box)); });
  if (boxes.empty()) {
    return result;
  }
  // What is far too large is set aside until it is known what the others are.
  const double usual = kMuchLarger * sizeOfMost(boxes, kUsualShare);
  const double half = kLargerThanAll * sizeOfMost(boxes, kHalf);
  const double limit = half > 0.0 ? std::min(usual, half) : usual;
  const auto large = std::stable_partition(boxes.begin(), boxes.end(), [&](const ElementBox& one) {
    return limit == 0.0 || sizeOf(one.box) <= limit;
  });
  Boxes aside(large, boxes.end());
  boxes.erase(large, boxes.end());
  std::ranges::stable_sort(aside, {}, [](const ElementBox& one) { return sizeOf(one.box); });
  const bool canJudge = boxes.size() + 1 >= kLeastToJudge;
  for (int i = 0; i < kMostCuts && (trimAlong(boxes, true) || trimAlong(boxes, false)); ++i) {}
  result.box = unionOf(boxes.begin(), boxes.end());
  for (const ElementBox& one : aside) {
    const double size = sizeOf(result.box);
    const double most = canJudge ? kTooLarge : kLargerThanAll;
    if (sizeOf(one.box) <= most * size && gapBetween(one.box, result.box) <= most * size) {
      result.box.include(one.box);
      boxes.push_back(one);
    }
  }
  std::vector<std::uint32_t> kept;
  for (const ElementBox& one : boxes) {
    kept.push_back(one.element);
  }
  std::ranges::sort(kept);
  std::ranges::sort(all);
  std::ranges::set_difference(all, kept, std::back_inserter(result.outliers));
  return result;
}

}  // namespace quorvan::tool
