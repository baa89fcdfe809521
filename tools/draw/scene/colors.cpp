#include <tools/draw/scene/colors.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include <tools/model/item_reader.h>

namespace quorvan::tool {

namespace {

constexpr std::int64_t kLastIndex = 256;  // "as the layer"
constexpr std::int64_t kFirstGrey = 250;
constexpr std::int64_t kFirstHue = 10;

constexpr Color kNamed[] = {{0, 0, 0},       {255, 0, 0},    {200, 170, 0}, {0, 153, 0},
                            {0, 160, 176},   {0, 0, 255},    {200, 0, 200}, {0, 0, 0},
                            {128, 128, 128}, {170, 170, 170}};

// The same as a screen shows them, of 1 to 9.
constexpr Color kNamedOnScreen[] = {{255, 0, 0},     {255, 255, 0},   {0, 255, 0},
                                    {0, 255, 255},   {0, 0, 255},     {255, 0, 255},
                                    {255, 255, 255}, {128, 128, 128}, {192, 192, 192}};

std::uint8_t part(double value) {
  return static_cast<std::uint8_t>(std::lround(255.0 * std::clamp(value, 0.0, 1.0)));
}

// The hues run in steps of 15 degrees, ten numbers each: five brightnesses, the odd ones paler.
Color hueColor(std::int64_t index) {
  constexpr double kBrightness[] = {1.0, 0.8, 0.6, 0.5, 0.3};
  const std::int64_t step = (index - kFirstHue) / 10;
  const double hue = static_cast<double>(step) * 0.25;  // of sixths
  const double value = kBrightness[(index % 10) / 2];
  const double saturation = index % 2 == 0 ? 1.0 : 0.5;
  const auto channel = [&](double shift) {
    const double place = std::fmod(hue + shift, 6.0);
    const double weight = std::clamp(std::min(place, 4.0 - place), 0.0, 1.0);
    return value * (1.0 - saturation * weight);
  };
  return {part(channel(5.0)), part(channel(3.0)), part(channel(1.0))};
}

}  // namespace

std::optional<ColorScheme> colorSchemeNamed(std::string_view name) noexcept {
  if (name == "index") {
    return ColorScheme::kIndex;
  }
  if (name == "rgb") {
    return ColorScheme::kRgb;
  }
  if (name == "bgr") {
    return ColorScheme::kBgr;
  }
  return std::nullopt;
}

ColorScheme guessColorScheme(const TransferFile& file) {
  ItemReader reader(file);
  for (const Element& element : file.elements()) {
    if (element.schema == nullptr) {
      continue;
    }
    const auto& schemas = element.schema->items;
    for (std::size_t i = 0; i < schemas.size(); ++i) {
      if (schemas[i].kind == items::Kind::kColor &&
          reader.readOne(element, i).integer > kLastIndex) {
        return ColorScheme::kBgr;
      }
    }
  }
  return ColorScheme::kIndex;
}

Color colorOf(std::int64_t number, ColorScheme scheme) noexcept {
  const auto byte = [number](unsigned shift) {
    return static_cast<std::uint8_t>((static_cast<std::uint64_t>(number) >> shift) & 0xFFU);
  };
  Color color;
  if (scheme == ColorScheme::kRgb) {
    color = {byte(16), byte(8), byte(0)};
  } else if (scheme == ColorScheme::kBgr) {
    color = {byte(0), byte(8), byte(16)};
  } else if (number >= 0 && number < static_cast<std::int64_t>(std::size(kNamed))) {
    color = kNamed[number];
  } else if (number >= kFirstHue && number < kFirstGrey) {
    color = hueColor(number);
  } else if (number >= kFirstGrey && number < 256) {
    color = {part(0.2 + 0.12 * static_cast<double>(number - kFirstGrey)),
             part(0.2 + 0.12 * static_cast<double>(number - kFirstGrey)),
             part(0.2 + 0.12 * static_cast<double>(number - kFirstGrey))};
  }
  return color;
}

int nearestIndex(Color color) noexcept {
  constexpr int kBlackOrWhite = 7;
  if (color == Color()) {
    return kBlackOrWhite;
  }
  int nearest = 0;
  int least = std::numeric_limits<int>::max();
  for (int index = 1; index < static_cast<int>(kLastIndex); ++index) {
    const Color other = index < static_cast<int>(kFirstHue) ? kNamedOnScreen[index - 1]
                                                            : colorOf(index, ColorScheme::kIndex);
    const int red = color.red - other.red;
    const int green = color.green - other.green;
    const int blue = color.blue - other.blue;
    const int distance = red * red + green * green + blue * blue;
    if (distance < least) {
      least = distance;
      nearest = index;
    }
  }
  return nearest;
}

Color legibleOnPaper(Color color) noexcept {
  constexpr double kBrightest = 190.0;  // of 255, as the eye weighs the parts
  if (color == Color{255, 255, 255}) {
    return {};
  }
  constexpr double kDarkened = 130.0;
  const double brightness = 0.299 * color.red + 0.587 * color.green + 0.114 * color.blue;
  if (brightness <= kBrightest) {
    return color;
  }
  const auto darker = [&](std::uint8_t value) {
    return static_cast<std::uint8_t>(value * kDarkened / brightness);
  };
  return {darker(color.red), darker(color.green), darker(color.blue)};
}

std::string webColor(Color color) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text = "#";
  for (const std::uint8_t one : {color.red, color.green, color.blue}) {
    text += kDigits[one >> 4U];
    text += kDigits[one & 0xFU];
  }
  return text;
}

}  // namespace quorvan::tool
