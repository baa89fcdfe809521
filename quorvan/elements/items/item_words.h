// The words of the items that the element classes share. Not installed.
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

#include <quorvan/xml/name.h>

namespace quorvan::items {

/// The version that every element class files.
inline constexpr int kElementVersion = 1;

// What a flag is filed as. Reading takes any other text than the first for the second.
inline constexpr std::string_view kTrue = "True";
inline constexpr std::string_view kFalse = "False";
inline constexpr auto kWideTrue = [] {
  std::array<wchar_t, kTrue.size() + 1> wide{};
  std::copy(kTrue.begin(), kTrue.end(), wide.begin());
  return wide;
}();

/// The bond class that older files say by a number: 0 high bond, 1 plain; empty for any other.
constexpr std::string_view adherenceOf(long code) noexcept {
  return code == 0 ? "Ha" : code == 1 ? "Dx" : "";
}

// The list of points or segments of a class, and the stems of its entries' names.
inline constexpr dom::Name kListName = "Vector";
inline constexpr std::string_view kPointStem = "Point";
inline constexpr std::string_view kBulgeStem = "Bulge";

}  // namespace quorvan::items
