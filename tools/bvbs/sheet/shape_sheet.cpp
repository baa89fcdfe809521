#include <tools/bvbs/sheet/shape_sheet.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <string>

#include <tools/bvbs/bent_shape.h>
#include <tools/draw/bar_list/shape_sketch.h>
#include <tools/draw/scene/plain_shapes.h>
#include <tools/text/number_text.h>

namespace quorvan::tool::bvbs {

namespace {

constexpr std::size_t kColumns = 3;
constexpr double kEdge = 10.0;
constexpr double kCaption = 6.0;  // height
constexpr double kGap = 5.0;
constexpr double kCellWidth = kSketchWidth + kGap;
constexpr double kCellHeight = kSketchHeight + kCaption + kGap;
constexpr double kCaptionLettering = 2.2;
constexpr double kShapeLettering = 2.0;
constexpr double kBarWidth = 0.7;
constexpr double kRadians = std::numbers::pi / 180.0;
constexpr Color kShapeInk{0, 0, 0};

Shape shapeText(std::string text, PlanePoint at, double height = kShapeLettering,
                AlignX align = AlignX::kCentre) {
  return textShape({std::move(text), at, height, 0.0, align, AlignY::kMiddle}, kShapeInk);
}

PlanePoint middleOfCell() {
  return {kSketchWidth / 2.0, kSketchHeight / 2.0};
}

// The bar as the list sketches it.
BarRow rowOf(const Record& record, const BentShape& shape) {
  BarRow row;
  row.bent.shape = BarShape::kPolygon;
  row.bent.diameter = numberIn(record.header('d')).value_or(0.0);
  for (std::size_t i = 0; i < shape.legs.size(); ++i) {
    const ShapeLeg& leg = shape.legs[i];
    Leg one;
    one.axis = one.outside = leg.length;
    row.bent.legs.push_back(one);
    if (i + 1 < shape.legs.size()) {
      row.bent.bends.push_back({std::abs(leg.bend) * kRadians, leg.bend >= 0.0, false, 0.0});
    }
  }
  if (!shape.offsets.empty()) {
    Coordinates at;
    row.bent.course.push_back(at);
    for (const auto& offset : shape.offsets) {
      at = {at.x + offset[0], at.y + offset[1], at.z + offset[2]};
      row.bent.course.push_back(at);
    }
  }
  return row;
}

// A shape with arcs, drawn to scale into a cell.
class ArcDrawing {
 public:
  explicit ArcDrawing(const BentShape& shape) : m_shape(shape) {}

  std::vector<Shape> draw() {
    follow(1.0);
    const double wide = m_most.x - m_least.x;
    const double high = m_most.y - m_least.y;
    const double factor = std::min((kSketchWidth - 2.0 * kGap) / std::max(wide, 1.0),
                                   (kSketchHeight - 2.0 * kGap) / std::max(high, 1.0));
    const PlanePoint by = middleOfCell() - (m_least + m_most) * (0.5 * factor);
    m_texts.clear();
    std::vector<Shape> shapes;
    shapes.push_back(
        placed(lineShape(Layer::kBars, kShapeInk, kBarWidth, follow(factor)), 1.0, by));
    for (const Shape& text : m_texts) {
      shapes.push_back(placed(text, 1.0, by));
    }
    return shapes;
  }

 private:
  Path follow(double factor) {
    Path path;
    PlanePoint way{1.0, 0.0};
    path.moveTo({});
    m_at = {};
    for (const ShapeLeg& leg : m_shape.legs) {
      if (leg.isArc) {
        way = followArc(leg, way, factor, path);
      } else {
        const PlanePoint end = m_at + way * (leg.length * factor);
        addText(rounded(leg.length, 1), (m_at + end) * 0.5);
        m_at = end;
        path.lineTo(m_at);
      }
      look(m_at);
      way = turned(way, leg.bend * kRadians);
    }
    return path;
  }

  // Once around at a time: a full turn and more is two arcs.
  PlanePoint followArc(const ShapeLeg& leg, PlanePoint way, double factor, Path& path) {
    constexpr int kLooks = 24;
    const double side = leg.angle < 0.0 ? -1.0 : 1.0;
    const PlanePoint center = m_at + leftOf(way) * (side * leg.length * factor);
    const PlanePoint begin = m_at - center;
    const double sweep = leg.angle * kRadians;
    for (int i = 0; i <= kLooks; ++i) {
      look(center + turned(begin, sweep * i / kLooks));
    }
    double rest = std::abs(sweep);
    while (rest > 0.0) {
      const double part = std::min(rest, 1.9 * std::numbers::pi);
      path.arcTo(center, side * part);
      rest -= part;
    }
    addText("r " + rounded(leg.length, 1) + ", " + rounded(std::abs(leg.angle), 2) + "\u00B0",
            center);
    m_at = center + turned(begin, sweep);
    return turned(way, sweep);
  }

  void addText(std::string text, PlanePoint at) {
    m_texts.push_back(shapeText(std::move(text), at));
    m_texts.back().style.isOnPaper = true;
  }

  void look(PlanePoint point) {
    m_least = {std::min(m_least.x, point.x), std::min(m_least.y, point.y)};
    m_most = {std::max(m_most.x, point.x), std::max(m_most.y, point.y)};
  }

  const BentShape& m_shape;
  PlanePoint m_at;
  PlanePoint m_least;
  PlanePoint m_most;
  std::vector<Shape> m_texts;
};

std::vector<Shape> sayInstead(std::string text) {
  return {shapeText(std::move(text), middleOfCell())};
}

std::vector<Shape> meshShapes(const Record& record) {
  const std::optional<double> length = numberIn(record.header('l'));
  const std::optional<double> width = numberIn(record.header('b'));
  if (!length || !width || !(*length > 0.0) || !(*width > 0.0)) {
    return sayInstead("no size");
  }
  const double factor =
      std::min((kSketchWidth - 2.0 * kGap) / *length, (kSketchHeight - 2.0 * kGap) / *width);
  const PlanePoint half{*length * factor / 2.0, *width * factor / 2.0};
  const PlanePoint center = middleOfCell();
  Path path;
  path.moveTo(center - half);
  path.lineTo({center.x + half.x, center.y - half.y});
  path.lineTo(center + half);
  path.lineTo({center.x - half.x, center.y + half.y});
  path.close();
  std::string text = std::string(record.header('m')) + "  " + rounded(*length, 1) + " \u00D7 " +
                     rounded(*width, 1);
  return {lineShape(Layer::kBars, kShapeInk, kBarWidth / 2.0, std::move(path)),
          shapeText(std::move(text), center)};
}

std::vector<Shape> barShapes(const Record& record, const Block& geometry) {
  const BentShape shape = readShape(record, geometry);
  if (!shape.faults.empty() || shape.legs.empty()) {
    return sayInstead("a shape that cannot be read");
  }
  if (std::ranges::any_of(shape.legs, &ShapeLeg::isArc)) {
    return ArcDrawing(shape).draw();
  }
  BarList list;
  list.options.cutting = usualRules(Schedule::kIso3766);
  return sketchOf(rowOf(record, shape), list).shapes;
}

std::vector<Shape> shapesOf(const Record& record) {
  const Block* const geometry = record.find('G');
  switch (record.kind->geometry) {
    case GeometryForm::kMesh:
      return meshShapes(record);
    case GeometryForm::kLegs:
    case GeometryForm::kPoints:
    case GeometryForm::kTurns:
      return geometry == nullptr ? sayInstead("no shape in the record")
                                 : barShapes(record, *geometry);
    case GeometryForm::kNone:
      return sayInstead(std::string(record.kind->name) + ": no shape in the record");
  }
  return {};
}

std::string captionOf(const Record& record) {
  std::string text = "mark " + std::string(record.header('p'));
  const auto add = [&](const char* before, std::string_view value) {
    if (!value.empty()) {
      text.append(", ").append(before).append(value);
    }
  };
  add("\u00D8 ", record.header('d'));
  add("n ", record.header('n'));
  add("l ", record.header('l'));
  return text;
}

}  // namespace

Scene shapeSheet(const std::vector<Record>& records) {
  const std::size_t rows = std::max<std::size_t>(1, (records.size() + kColumns - 1) / kColumns);
  Scene scene;
  scene.title = "Bending data";
  scene.width = 2.0 * kEdge + kColumns * kCellWidth - kGap;
  scene.height = 2.0 * kEdge + static_cast<double>(rows) * kCellHeight - kGap;
  for (std::size_t i = 0; i < records.size(); ++i) {
    const std::size_t row = i / kColumns;
    const PlanePoint corner{
        kEdge + static_cast<double>(i % kColumns) * kCellWidth,
        scene.height - kEdge - static_cast<double>(row + 1) * kCellHeight + kGap};
    for (const Shape& shape : shapesOf(records[i])) {
      scene.shapes.push_back(placed(shape, 1.0, corner));
    }
    const PlanePoint caption{corner.x, corner.y + kSketchHeight + kCaption / 2.0};
    scene.shapes.push_back(
        shapeText(captionOf(records[i]), caption, kCaptionLettering, AlignX::kLeft));
  }
  std::ranges::stable_sort(scene.shapes, {}, &Shape::layer);
  return scene;
}

}  // namespace quorvan::tool::bvbs
