// The unit of the angles in a drawing, which the file does not say.
#pragma once

#include <cstdint>
#include <numbers>
#include <string_view>

#include <tools/files/transfer_file.h>

namespace quorvan::tool {

enum class AngleUnit : std::uint8_t { kDegrees, kRadians };

/// "degrees", "radians".
std::string_view angleUnitName(AngleUnit unit) noexcept;

constexpr double inRadians(double angle, AngleUnit unit) noexcept {
  return unit == AngleUnit::kDegrees ? angle * std::numbers::pi / 180.0 : angle;
}

struct AngleGuess {
  AngleUnit unit = AngleUnit::kDegrees;
  std::uint64_t angles = 0;  // other than 0, of texts and hooks, that it is made from
};

/// Degrees where an angle goes beyond a full turn in radians. Else radians where most of the
/// different angles are ones that people draw in radians: multiples of 15 degrees, as hooks of 90,
/// 135 and 180 degrees and most texts have; hooks weigh more than texts. Else degrees.
AngleGuess guessAngleUnit(const TransferFile& file);

}  // namespace quorvan::tool
