#include <tools/draw/scene/sheet.h>

#include <algorithm>
#include <charconv>
#include <system_error>

namespace quorvan::tool {

namespace {

constexpr double kMillimetresPerMetre = 1000.0;
constexpr double kUsualScales[] = {1, 2, 2.5, 5, 10, 20, 25, 50, 75};
constexpr double kMostSheet = 20000.0;  // mm

struct NamedSheet {
  std::string_view name;
  SheetSize size;
};

constexpr NamedSheet kSheets[] = {{"A0", {1189, 841}}, {"A1", {841, 594}}, {"A2", {594, 420}},
                                  {"A3", {420, 297}},  {"A4", {297, 210}}, {"A5", {210, 148}}};

// The first usual scale, and then ten and a hundred times those, that is not below `least`.
double usualScale(double least) {
  for (double power = 1.0; power < 1e15; power *= 100.0) {
    for (const double scale : kUsualScales) {
      if (scale * power >= least) {
        return scale * power;
      }
    }
  }
  return least;
}

std::optional<double> numberIn(std::string_view text) {
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !(value > 0.0) ||
      value > kMostSheet) {
    return std::nullopt;
  }
  return value;
}

}  // namespace

Sheet::Sheet(const std::optional<Extents>& extents, const DrawOptions& options)
    : m_plane(options.plane) {
  const PlanePoint least = extents ? projected(extents->least) : PlanePoint();
  const PlanePoint most = extents ? projected(extents->most) : PlanePoint();
  const double unit = options.unit->inMetres * kMillimetresPerMetre;
  const PlanePoint size = (most - least) * unit;
  if (options.sheet) {
    m_size = *options.sheet;
  }
  const double roomX = std::max(1.0, m_size.width - 2 * kMargin);
  const double roomY = std::max(1.0, m_size.height - 3 * kMargin - kTitleHeight);
  m_scale =
      options.scale ? *options.scale : usualScale(std::max({size.x / roomX, size.y / roomY, 1e-3}));
  m_factor = unit / m_scale;
  const PlanePoint drawn = (most - least) * m_factor;
  if (options.scale && !options.sheet) {
    m_size = {drawn.x + 2 * kMargin, drawn.y + 3 * kMargin + kTitleHeight};
  }
  const PlanePoint middle{m_size.width / 2.0, (m_size.height + kTitleHeight + kMargin) / 2.0};
  m_origin = middle - (least + most) * (m_factor / 2.0);
}

PlanePoint Sheet::place(const Coordinates& point) const noexcept {
  return m_origin + projected(point) * m_factor;
}

PlanePoint Sheet::direction(const Coordinates& vector) const noexcept {
  return projected(vector) * m_factor;
}

PlanePoint Sheet::projected(const Coordinates& point) const noexcept {
  switch (m_plane) {
    case Plane::kXZ:
      return {point.x, point.z};
    case Plane::kYZ:
      return {point.y, point.z};
    case Plane::kXY:
      break;
  }
  return {point.x, point.y};
}

std::optional<SheetSize> sheetNamed(const std::string& name) {
  for (const NamedSheet& known : kSheets) {
    if (known.name == name) {
      return known.size;
    }
    if (std::string(known.name) + 'u' == name) {
      return SheetSize{known.size.height, known.size.width};
    }
  }
  const std::size_t by = name.find('x');
  if (by == std::string::npos) {
    return std::nullopt;
  }
  const auto width = numberIn(std::string_view(name).substr(0, by));
  const auto height = numberIn(std::string_view(name).substr(by + 1));
  if (!width || !height) {
    return std::nullopt;
  }
  return SheetSize{*width, *height};
}

}  // namespace quorvan::tool
