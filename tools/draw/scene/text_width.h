// How wide a text is, without a font at hand.
#pragma once

#include <string_view>

namespace quorvan::tool {

/// The width of a text in UTF-8 whose capitals have that height, in the wider of the
/// common sans-serif fonts that may stand in for each other.
double textWidth(std::string_view text, double capitals) noexcept;

}  // namespace quorvan::tool
