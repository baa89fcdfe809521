// The unit of the lengths in a drawing.
#pragma once

#include <string_view>

namespace quorvan::tool {

struct LengthUnit {
  std::string_view name;
  double inMetres;
  int decimals;  // of lengths in lists

  [[nodiscard]] constexpr double metres(double length) const noexcept { return length * inMetres; }
  [[nodiscard]] constexpr double millimetres(double length) const noexcept {
    return inMetres == 0.001 ? length : length * inMetres * 1000.0;
  }
  /// A length in the unit of so many millimetres.
  [[nodiscard]] constexpr double ofMillimetres(double length) const noexcept {
    return inMetres == 0.001 ? length : length / (inMetres * 1000.0);
  }
};

inline constexpr LengthUnit kLengthUnits[] = {{"mm", 0.001, 0}, {"cm", 0.01, 1}, {"m", 1.0, 3}};

}  // namespace quorvan::tool
