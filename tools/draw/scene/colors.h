// Colours as drawings hold them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <tools/files/transfer_file.h>

namespace quorvan::tool {

struct Color {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  friend bool operator==(const Color&, const Color&) = default;
};

/// What the numbers mean: an index of the palette of 255 colours that CAD programs share, or the
/// three parts in either order.
enum class ColorScheme : std::uint8_t { kIndex, kRgb, kBgr };

/// The scheme of that name: "index", "rgb", "bgr". Nothing for any other, "auto" among them.
std::optional<ColorScheme> colorSchemeNamed(std::string_view name) noexcept;

/// An index where no number in the drawing is above 256, else parts with red in the lowest byte,
/// as Windows has them.
ColorScheme guessColorScheme(const TransferFile& file);

/// The colour. Of the palette the one that is black or white, whichever the background is not, is
/// black.
Color colorOf(std::int64_t number, ColorScheme scheme) noexcept;

/// The index, from 1 to 255, whose colour on a screen is nearest to the colour. Black and white are
/// both 7, which is drawn in whichever of the two the background is not.
int nearestIndex(Color color) noexcept;

/// The colour, or a darker one of its hue where it could hardly be seen on white paper; for white
/// that is black.
Color legibleOnPaper(Color color) noexcept;

/// "#1a2b3c".
std::string webColor(Color color);

}  // namespace quorvan::tool
