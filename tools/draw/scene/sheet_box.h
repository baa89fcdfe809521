// An upright rectangle on the sheet.
#pragma once

#include <algorithm>
#include <limits>

#include <tools/draw/scene/plane_point.h>

namespace quorvan::tool {

struct SheetBox {
  PlanePoint least;
  PlanePoint most;

  /// One that holds nothing yet.
  static constexpr SheetBox none() noexcept {
    constexpr double kFar = std::numeric_limits<double>::infinity();
    return {{kFar, kFar}, {-kFar, -kFar}};
  }
  [[nodiscard]] bool isEmpty() const noexcept { return !(least.x <= most.x); }
  [[nodiscard]] double width() const noexcept { return most.x - least.x; }
  [[nodiscard]] double height() const noexcept { return most.y - least.y; }
  [[nodiscard]] PlanePoint center() const noexcept { return (least + most) * 0.5; }

  void include(PlanePoint point) noexcept {
    least = {std::min(least.x, point.x), std::min(least.y, point.y)};
    most = {std::max(most.x, point.x), std::max(most.y, point.y)};
  }
  void include(const SheetBox& other) noexcept {
    if (!other.isEmpty()) {
      include(other.least);
      include(other.most);
    }
  }
  [[nodiscard]] SheetBox grown(double by) const noexcept {
    return {least - PlanePoint{by, by}, most + PlanePoint{by, by}};
  }
  [[nodiscard]] bool meets(const SheetBox& other) const noexcept {
    return least.x <= other.most.x && other.least.x <= most.x && least.y <= other.most.y &&
           other.least.y <= most.y;
  }
};

}  // namespace quorvan::tool
