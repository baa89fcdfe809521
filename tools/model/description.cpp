#include <tools/model/description.h>

#include <cmath>

#include <tools/model/bar.h>
#include <tools/model/class_names.h>
#include <tools/model/control_members.h>
#include <tools/model/repartition.h>
#include <tools/model/series_layout.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr int kPlaceDecimals = 3;
constexpr int kLengthDecimals = 1;

std::string describe(const Bar& bar) {
  std::string text = std::string(shapeName(bar.shape)) + ", mark " + std::to_string(bar.reference) +
                     ", diameter " + rounded(bar.diameter, 2);
  if (!bar.grade.empty()) {
    text += ' ' + bar.grade;
  }
  if (bar.hasLength() && std::isfinite(lengthOf(bar))) {
    text += ", length " + rounded(lengthOf(bar), kLengthDecimals);
  }
  if (bar.isHidden) {
    text += ", hidden";
  }
  if (bar.shape == BarShape::kFrameCirc) {
    return text + ", about " + placeText(bar.center);
  }
  return bar.line.empty() ? text : text + ", at " + placeText(bar.line.front());
}

std::string describe(const Repartition& series) {
  return "repartition of " + std::to_string(series.number()) + ' ' +
         std::string(shortClassName(series.className)) +
         (series.hasLine() ? ", spacing " + spacingText(statedSpacings(series, nullptr)) + ", at " +
                                 placeText(series.start)
                           : std::string());
}

// What the other kinds are told apart by.
std::string describeByItems(const Element& element, const std::vector<ItemValue>& items) {
  std::string text(shortClassName(element.className()));
  for (const ItemValue& item : items) {
    const std::string_view name = item.schema->name;
    if (item.schema->kind == items::Kind::kString) {
      text += std::string(", ") + std::string(name) + " \"" + item.text + '"';
    } else if (item.schema->kind == items::Kind::kPoint) {
      text += std::string(name == "Point2" ? " to " : ", at ") + placeText(item.point);
    } else if (name == "Radius") {
      text += ", radius " + rounded(item.number, kPlaceDecimals);
    } else if (!item.points.empty()) {
      text += ", " + std::to_string(item.points.size()) + " points from " +
              placeText(item.points.front());
    } else if (!item.segments.empty()) {
      text += ", " + std::to_string(item.segments.size()) + " segments from " +
              placeText(item.segments.front().start);
    }
  }
  return text;
}

}  // namespace

std::string placeText(const Coordinates& point) {
  return '(' + rounded(point.x, kPlaceDecimals) + ", " + rounded(point.y, kPlaceDecimals) + ", " +
         rounded(point.z, kPlaceDecimals) + ')';
}

std::string describe(const Element& element, const std::vector<ItemValue>& items) {
  if (element.is(items::ElementClass::kDrawingControl)) {
    return "drawing control record";
  }
  if (const auto shape = barShapeOf(element)) {
    return describe(toBar(*shape, items));
  }
  if (element.is(items::ElementClass::kRepartition)) {
    return describe(toRepartition(items));
  }
  return describeByItems(element, items);
}

}  // namespace quorvan::tool
