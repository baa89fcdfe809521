#include <tools/model/bar.h>

#include <cmath>
#include <numbers>

namespace quorvan::tool {

namespace {

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
    case BarShape::kStraight:
    case BarShape::kL:
    case BarShape::kU:
    case BarShape::kPin:
    case BarShape::kFrameRect:
    case BarShape::kStirrup:
      bar.line = {items.point("Point1"), items.point("Point2")};
      break;
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

std::optional<BarShape> barShapeOf(items::ElementClass id) noexcept {
  switch (id) {
    case items::ElementClass::kStraightBar:
      return BarShape::kStraight;
    case items::ElementClass::kLBar:
      return BarShape::kL;
    case items::ElementClass::kUBar:
      return BarShape::kU;
    case items::ElementClass::kPin:
      return BarShape::kPin;
    case items::ElementClass::kPointBar:
      return BarShape::kPoint;
    case items::ElementClass::kPolygonBar:
      return BarShape::kPolygon;
    case items::ElementClass::kFrameRect:
      return BarShape::kFrameRect;
    case items::ElementClass::kFrameCirc:
      return BarShape::kFrameCirc;
    case items::ElementClass::kStirrup:
      return BarShape::kStirrup;
    case items::ElementClass::kLine:
    case items::ElementClass::kCircle:
    case items::ElementClass::kText:
    case items::ElementClass::kFilledPolygon:
    case items::ElementClass::kMesh:
    case items::ElementClass::kFormwork:
    case items::ElementClass::kRepartition:
    case items::ElementClass::kDrawingControl:
      break;
  }
  return std::nullopt;
}

std::optional<BarShape> barShapeOf(std::string_view className) {
  const items::ElementSchema* const schema = items::findElement(className);
  return schema == nullptr ? std::nullopt : barShapeOf(schema->id);
}

std::string_view shapeName(BarShape shape) noexcept {
  switch (shape) {
    case BarShape::kStraight:
      return "straight bar";
    case BarShape::kL:
      return "L bar";
    case BarShape::kU:
      return "U bar";
    case BarShape::kPin:
      return "pin";
    case BarShape::kPoint:
      return "bar seen end-on";
    case BarShape::kPolygon:
      return "polygon bar";
    case BarShape::kFrameRect:
      return "rectangular frame";
    case BarShape::kFrameCirc:
      return "circular frame";
    case BarShape::kStirrup:
      return "stirrup";
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
  double length = 0.0;
  for (const Hook& hook : bar.hooks) {
    length += hook.length < 0.0 ? 0.0 : hook.length;
  }
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
