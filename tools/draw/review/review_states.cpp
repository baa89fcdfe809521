#include <tools/draw/review/review_states.h>

#include <algorithm>
#include <utility>

#include <tools/draw/scene/painted_box.h>

namespace quorvan::tool {

namespace {

constexpr double kLeastOld = 0.25;  // mm
constexpr double kLeastNew = 0.5;   // mm

constexpr ReviewLook kLooks[] = {{ReviewState::kSame, {150, 150, 150}, "unchanged"},
                                 {ReviewState::kDeleted, {200, 30, 30}, "deleted"},
                                 {ReviewState::kBefore, {205, 120, 0}, "before"},
                                 {ReviewState::kAfter, {0, 90, 200}, "after"},
                                 {ReviewState::kAdded, {0, 130, 60}, "added"}};

}  // namespace

std::span<const ReviewLook> reviewLooks() noexcept {
  return kLooks;
}

const ReviewLook& lookOf(ReviewState state) noexcept {
  return kLooks[static_cast<std::size_t>(state)];
}

bool isOld(ReviewState state) noexcept {
  return state == ReviewState::kDeleted || state == ReviewState::kBefore;
}

Style styled(Style style, ReviewState state) {
  style.color = lookOf(state).color;
  if (isOld(state)) {
    style.width = std::max(style.width, kLeastOld);
    style.isFilled = false;
    style.isDashed = true;
  } else if (state != ReviewState::kSame) {
    style.width = style.isFilled ? style.width : std::max(style.width, kLeastNew);
    style.isDashed = false;
  }
  return style;
}

Shape reviewText(Layer layer, Color color, std::string text, PlanePoint at, double height) {
  Shape shape{layer, Shape::Kind::kText, kNoElement, false, {color, 0.0, true}, {}, {}, 0.0, {}};
  shape.lettering = {std::move(text), at, height};
  return shape;
}

Shape reviewPath(Layer layer, const Style& style, Path path) {
  return {layer, Shape::Kind::kPath, kNoElement, false, style, std::move(path), {}, 0.0, {}};
}

Shape strikeThrough(const Shape& text) {
  const TextCorners around = cornersOf(text.lettering);
  Path path;
  path.moveTo((around.corners[0] + around.corners[3]) * 0.5);
  path.lineTo((around.corners[1] + around.corners[2]) * 0.5);
  Shape shape = reviewPath(text.layer, {text.style.color, kLeastOld}, std::move(path));
  shape.element = text.element;
  return shape;
}

}  // namespace quorvan::tool
