#include <tools/draw/scene/sheet.h>

#include <algorithm>
#include <charconv>
#include <system_error>

namespace quorvan::tool {

namespace {

constexpr double kMillimetresPerMetre = 1000.0;
constexpr double kMostSheet = 20000.0;  // mm
constexpr double kMostAround = 4000.0;  // mm, of a sheet made around a drawing without being asked
constexpr double kLeastSize = 1e-3;     // mm, of a drawing of one point

struct NamedSheet {
  std::string_view name;
  SheetSize size;
};

constexpr NamedSheet kSheets[] = {{"A0", {1189, 841}}, {"A1", {841, 594}}, {"A2", {594, 420}},
                                  {"A3", {420, 297}},  {"A4", {297, 210}}, {"A5", {210, 148}}};
constexpr std::string_view kUsualSheets[] = {"A4", "A3", "A2", "A1", "A0"};

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

Sheet Sheet::natural(const DrawOptions& options) {
  return {options.plane, options.unit->inMetres * kMillimetresPerMetre};
}

Sheet Sheet::inDrawingUnits(const DrawOptions& options) {
  Sheet sheet = natural(options);
  sheet.m_scale = sheet.m_unit;
  sheet.m_factor = 1.0;
  return sheet;
}

Sheet::Sheet(const SheetContents& contents, const DrawOptions& options)
    : Sheet(options.plane, options.unit->inMetres * kMillimetresPerMetre) {
  m_hasTitle = options.title == Title::kStrip;
  m_isPaper = true;
  const bool isEmpty = contents.box.isEmpty();
  choose(contents, options);
  m_factor = m_unit / m_scale;
  m_origin = middle() - (isEmpty ? PlanePoint() : contents.box.center() * (1.0 / m_scale));
}

void Sheet::choose(const SheetContents& contents, const DrawOptions& options) {
  const std::optional<double> own = chooseScale(contents.hints);
  const auto fits = [&](double scale) {
    const PlanePoint size = sizeAt(scale, contents);
    const PlanePoint room = roomOn(m_size);
    return size.x <= room.x && size.y <= room.y;
  };
  if (options.sheet) {
    m_size = *options.sheet;
  }
  if (options.scale) {
    m_scale = *options.scale;
    if (!options.sheet) {
      makeAround(contents);
    }
    return;
  }
  if (own && !options.sheet) {
    m_scale = *own;
    return chooseSheet(contents);
  }
  if (own && options.sheet) {
    // The strip never takes the scale away from a drawing that has a title block of its own.
    const bool hasTitle = m_hasTitle;
    m_hasTitle = hasTitle && (!contents.hints.frame || fits(*own));
    if (fits(*own)) {
      m_scale = *own;
      return;
    }
    m_hasTitle = hasTitle;
  }
  const PlanePoint room = roomOn(m_size);
  const double x = contents.box.isEmpty()
                       ? 0.0
                       : contents.box.width() / std::max(1.0, room.x - 2 * contents.around);
  const double y = contents.box.isEmpty()
                       ? 0.0
                       : contents.box.height() / std::max(1.0, room.y - 2 * contents.around);
  m_scale = usualScale(std::max({x, y, kLeastSize}));
}

// The smallest usual sheet on which the drawing goes at the scale.
void Sheet::chooseSheet(const SheetContents& contents) {
  const PlanePoint size = sizeAt(m_scale, contents);
  if (!contents.hints.frame) {
    for (const std::string_view name : kUsualSheets) {
      for (const char* const turn : {"", "u"}) {
        const SheetSize sheet = *sheetNamed(std::string(name) + turn);
        const PlanePoint room = roomOn(sheet);
        if (size.x <= room.x && size.y <= room.y) {
          m_size = sheet;
          return;
        }
      }
    }
  }
  if (size.x <= kMostAround && size.y <= kMostAround) {
    return makeAround(contents);
  }
  m_size = {1189, 841};
  const PlanePoint room = roomOn(m_size);
  m_scale = usualScale(std::max(contents.box.width() / room.x, contents.box.height() / room.y));
}

void Sheet::makeAround(const SheetContents& contents) {
  const PlanePoint size = sizeAt(m_scale, contents);
  m_size = {size.x + 2 * kMargin, size.y + 2 * kMargin + stripHeight()};
}

PlanePoint Sheet::middle() const noexcept {
  return {m_size.width / 2.0, (m_size.height + stripHeight()) / 2.0};
}

SheetBox Sheet::room() const noexcept {
  constexpr double kEdge = 2.0;  // mm, of the paper
  const double bottom = m_hasTitle ? stripHeight() + kMargin / 2.0 : kEdge;
  return {{kEdge, bottom}, {m_size.width - kEdge, m_size.height - kEdge}};
}

double Sheet::stripHeight() const noexcept {
  return m_hasTitle ? kTitleHeight + kMargin : 0.0;
}

PlanePoint Sheet::roomOn(SheetSize size) const noexcept {
  return {std::max(1.0, size.width - 2 * kMargin),
          std::max(1.0, size.height - 2 * kMargin - stripHeight())};
}

PlanePoint Sheet::sizeAt(double scale, const SheetContents& contents) const noexcept {
  const PlanePoint around{2 * contents.around, 2 * contents.around};
  return contents.box.isEmpty() ? around
                                : (contents.box.most - contents.box.least) * (1.0 / scale) + around;
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
