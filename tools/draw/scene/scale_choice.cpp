#include <tools/draw/scene/scale_choice.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include <tools/text/ascii_letters.h>

namespace quorvan::tool {

namespace {

constexpr double kUsualScales[] = {1, 2, 2.5, 5, 10, 20, 25, 50, 75};
constexpr double kLargestScale = 10000;
constexpr double kUsualLettering = 2.5;    // mm, of capitals on paper
constexpr double kLeastLettering = 1.5;    // mm
constexpr double kLargestLettering = 5.0;  // mm
constexpr double kSheetSides[] = {210, 297, 420, 594, 841, 1189, 630, 840, 1050, 1260};
constexpr double kSameSide = 0.02;

bool isSheetSide(double length) {
  return std::ranges::any_of(
      kSheetSides, [length](double side) { return std::abs(length - side) <= kSameSide * side; });
}

// How little the scale suits: smaller is better.
double faultOf(double scale, double height, const ScaleHints& hints) {
  double fault = std::abs(std::log(height / scale / kUsualLettering));
  if (std::ranges::find(hints.statedScales, scale) == hints.statedScales.end()) {
    fault += 10.0;
  }
  if (!hints.frame || !isSheetSide(hints.frame->width() / scale) ||
      !isSheetSide(hints.frame->height() / scale)) {
    fault += 2.0;
  }
  return fault;
}

// "slope 1:50", "PENTE 1/100".
bool isSlope(std::string_view text) {
  constexpr std::string_view kWords[] = {"slope", "fall", "gradient", "batter", "pente", "talus"};
  const std::string lower = asciiLower(std::string(text));
  return std::ranges::any_of(
      kWords, [&lower](std::string_view word) { return lower.find(word) != std::string::npos; });
}

}  // namespace

std::optional<double> statedScale(std::string_view text) {
  for (std::size_t at = 0; at + 2 < text.size(); ++at) {
    const bool isOne = text[at] == '1' && (at == 0 || text[at - 1] == ' ' || text[at - 1] == '(' ||
                                           text[at - 1] == ':' || text[at - 1] == '=');
    if (!isOne) {
      continue;
    }
    std::size_t next = at + 1;
    while (next < text.size() && text[next] == ' ') {
      ++next;
    }
    if (next == text.size() || (text[next] != ':' && text[next] != '/')) {
      continue;
    }
    ++next;
    while (next < text.size() && text[next] == ' ') {
      ++next;
    }
    double scale = 0.0;
    const auto [end, error] = std::from_chars(text.data() + next, text.data() + text.size(), scale);
    if (error == std::errc() && scale >= 1.0 && usualScale(scale) == scale &&
        scale <= kLargestScale) {
      return isSlope(text) ? std::nullopt : std::optional(scale);
    }
  }
  return std::nullopt;
}

std::optional<double> usualHeight(const ScaleHints& hints) {
  if (hints.textHeights.empty()) {
    return std::nullopt;
  }
  std::vector<double> heights = hints.textHeights;
  const auto middle = heights.begin() + static_cast<std::ptrdiff_t>((heights.size() - 1) / 2);
  std::ranges::nth_element(heights, middle);
  return *middle;
}

std::optional<double> chooseScale(const ScaleHints& hints) {
  const auto height = usualHeight(hints);
  if (!height) {
    return std::nullopt;
  }
  std::optional<double> best;
  for (double scale = usualScale(*height / kLargestLettering);
       scale <= *height / kLeastLettering && scale <= kLargestScale;
       scale = usualScale(std::nextafter(scale, 2.0 * scale))) {
    if (!best || faultOf(scale, *height, hints) < faultOf(*best, *height, hints)) {
      best = scale;
    }
  }
  return best;
}

double usualScale(double least) noexcept {
  for (double power = 1.0; power < 1e15; power *= 100.0) {
    for (const double scale : kUsualScales) {
      if (scale * power >= least) {
        return scale * power;
      }
    }
  }
  return least;
}

}  // namespace quorvan::tool
