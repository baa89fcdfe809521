#include <tools/model/bar.h>

#include <cmath>
#include <numbers>

namespace quorvan::tool {

namespace {

struct NamedShape {
  std::string_view className;
  BarShape shape;
  std::string_view name;
};

constexpr NamedShape kShapes[] = {
    {"CKtZantoStraightBar", BarShape::kStraight, "straight bar"},
    {"CKtZantoLBar", BarShape::kL, "L bar"},
    {"CKtZantoUBar", BarShape::kU, "U bar"},
    {"CKtZantoPin", BarShape::kPin, "pin"},
    {"CKtZantoPointBar", BarShape::kPoint, "bar seen end-on"},
    {"CKtZantoPolygonBar", BarShape::kPolygon, "polygon bar"},
    {"CKtZantoFrameRect", BarShape::kFrameRect, "rectangular frame"},
    {"CKtZantoFrameCirc", BarShape::kFrameCirc, "circular frame"},
    {"CKtZantoStirrup", BarShape::kStirrup, "stirrup"},
};

// The items of one element by name; those that are missing have their defaults.
class Items {
 public:
  explicit Items(const std::vector<ItemValue>& items) : m_items(items) {}

  [[nodiscard]] Coordinates point(std::string_view name) const { return of(name).point; }
  [[nodiscard]] double number(std::string_view name) const { return of(name).number; }
  [[nodiscard]] const ItemValue& of(std::string_view name) const {
    static const ItemValue kNone;
    const ItemValue* const found = findItem(m_items, name);
    return found == nullptr ? kNone : *found;
  }

 private:
  const std::vector<ItemValue>& m_items;
};

// The corner across from `middle` in the parallelogram of the three.
Coordinates across(const Coordinates& first, const Coordinates& middle, const Coordinates& last) {
  return {first.x + last.x - middle.x, first.y + last.y - middle.y, first.z + last.z - middle.z};
}

void setLine(Bar& bar, const Items& items) {
  switch (bar.shape) {
    case BarShape::kPoint:
      bar.line = {items.point("Point1")};
      return;
    case BarShape::kPolygon:
      bar.line = items.of("NoPoints").points;
      return;
    case BarShape::kFrameCirc:
      bar.center = items.point("Center");
      bar.line = {items.point("StartPoint")};
      bar.radius = items.number("FrameRadius");
      bar.overlap = items.number("RecoverLength");
      return;
    default:
      bar.line = {items.point("Point1"), items.point("Point2")};
  }
  if (bar.shape == BarShape::kL || bar.shape == BarShape::kU || bar.shape == BarShape::kFrameRect) {
    bar.line.push_back(items.point("Point3"));
  }
  if (bar.shape == BarShape::kU || bar.shape == BarShape::kFrameRect) {
    bar.line.push_back(across(bar.line[0], bar.line[1], bar.line[2]));
  }
  bar.isClosed = bar.shape == BarShape::kFrameRect || bar.shape == BarShape::kStirrup;
}

}  // namespace

std::optional<BarShape> barShapeOf(std::string_view className) noexcept {
  for (const NamedShape& known : kShapes) {
    if (known.className == className) {
      return known.shape;
    }
  }
  return std::nullopt;
}

std::string_view shapeName(BarShape shape) noexcept {
  for (const NamedShape& known : kShapes) {
    if (known.shape == shape) {
      return known.name;
    }
  }
  return {};
}

Bar toBar(BarShape shape, const std::vector<ItemValue>& values) {
  const Items items(values);
  Bar bar;
  bar.shape = shape;
  setLine(bar, items);
  bar.hooks[0] = {items.number("HookLength1"), items.number("HookAngle1")};
  bar.hooks[1] =
      bar.isLink() ? bar.hooks[0] : Hook{items.number("HookLength2"), items.number("HookAngle2")};
  bar.isHookUp = {items.of("Hook1Up").flag, items.of("Hook2Up").flag};
  bar.side = items.of("Side").flag;
  bar.grade = items.of("SteelGrade").text;
  bar.adherence = items.of("Adherence").text;
  bar.diameter = items.number("Diameter");
  bar.reference = items.of("Reference").integer;
  bar.isHidden = items.of("Hidden").flag;
  return bar;
}

double lengthOf(const Bar& bar) noexcept {
  double length = bar.hooks[0].length + bar.hooks[1].length;
  if (bar.shape == BarShape::kFrameCirc) {
    return length + 2.0 * std::numbers::pi * bar.radius + bar.overlap;
  }
  for (std::size_t i = 1; i < bar.line.size(); ++i) {
    length += distance(bar.line[i - 1], bar.line[i]);
  }
  if (bar.isClosed && !bar.line.empty()) {
    length += distance(bar.line.back(), bar.line.front());
  }
  return length;
}

double distance(const Coordinates& a, const Coordinates& b) noexcept {
  return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z);
}

}  // namespace quorvan::tool
