// What becomes of an element between two drawings, and how that is told without colour.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

enum class ReviewState : std::uint8_t { kSame, kDeleted, kBefore, kAfter, kAdded };

struct ReviewLook {
  ReviewState state;
  Color color;
  const char* name;
};

/// One for each state, in that order.
std::span<const ReviewLook> reviewLooks() noexcept;

const ReviewLook& lookOf(ReviewState state) noexcept;

/// Whether the old drawing alone has it in this form.
bool isOld(ReviewState state) noexcept;

/// The style of a line or area in that state: dashed and in outline what is old, wide what is new.
Style styled(Style style, ReviewState state);

/// A text, or a line, of no element.
Shape reviewText(Layer layer, Color color, std::string text, PlanePoint at, double height);
Shape reviewPath(Layer layer, const Style& style, Path path);

/// A line through a text: dashes cannot tell that it went.
Shape strikeThrough(const Shape& text);

}  // namespace quorvan::tool
