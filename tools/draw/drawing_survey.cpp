#include <tools/draw/drawing_survey.h>

#include <algorithm>
#include <cmath>

#include <tools/draw/element_painter.h>
#include <tools/draw/scene/painted_box.h>

namespace quorvan::tool {

namespace {

constexpr double kOnTheEdge = 0.02;  // of the drawing's size
constexpr double kWholeSide = 0.95;
constexpr std::size_t kTextsInAFrame = 3;

// What is found out element by element.
struct Findings {
  std::vector<ElementBox> boxes;
  std::vector<SheetBox> lines;  // level and upright ones
  ScaleHints hints;
  bool hasBars = false;
};

void look(const Shape& shape, Findings& findings, SheetBox& box) {
  if (shape.kind == Shape::Kind::kText) {
    box.include(paintedBox(shape));
    return;
  }
  // Lines keep within the margin with their width.
  const SheetBox painted = paintedBox(shape, 0.0);
  box.include(painted);
  if (shape.layer == Layer::kLines && (painted.width() == 0.0 || painted.height() == 0.0)) {
    findings.lines.push_back(painted);
  }
}

Findings lookAtAll(const TransferFile& file, const DrawOptions& options, AngleUnit angles,
                   RepeatedBars& repeated) {
  Findings findings;
  const Sheet natural = Sheet::natural(options);
  DrawContext context{natural, ColorScheme::kIndex, angles, options.hidden};
  context.isMeasuring = true;
  context.lettering = 0.0;
  context.paper = 0.0;
  ShapeSink sink(context);
  ElementPainter painter(file, repeated, sink, nullptr);
  for (const Element& element : file.elements()) {
    painter.draw(element);
    findings.hasBars = findings.hasBars || barShapeOf(element).has_value();
    SheetBox box = SheetBox::none();
    for (const Shape& shape : sink.take()) {
      // Marks alone stand where they do beside everything.
      if (options.shows(shape.layer) || options.showsMarksAlone()) {
        look(shape, findings, box);
      }
      if (shape.kind == Shape::Kind::kText && shape.lettering.height > 0.0) {
        findings.hints.textHeights.push_back(shape.lettering.height);
        if (const auto scale = statedScale(shape.lettering.text)) {
          findings.hints.statedScales.push_back(*scale);
        }
      }
    }
    if (!box.isEmpty()) {
      findings.boxes.push_back({element.place, box});
    }
  }
  return findings;
}

// Lines along all four sides of the drawing, around texts: a frame of its own.
bool hasFrame(const Findings& findings, const SheetBox& box) {
  if (findings.hints.textHeights.size() < kTextsInAFrame) {
    return false;
  }
  const double near = kOnTheEdge * std::max(box.width(), box.height());
  bool isFound[4] = {};
  for (const SheetBox& line : findings.lines) {
    const bool isLong = line.width() >= kWholeSide * box.width();
    const bool isHigh = line.height() >= kWholeSide * box.height();
    isFound[0] = isFound[0] || (isLong && line.least.y <= box.least.y + near);
    isFound[1] = isFound[1] || (isLong && line.least.y >= box.most.y - near);
    isFound[2] = isFound[2] || (isHigh && line.least.x <= box.least.x + near);
    isFound[3] = isFound[3] || (isHigh && line.least.x >= box.most.x - near);
  }
  return isFound[0] && isFound[1] && isFound[2] && isFound[3];
}

}  // namespace

DrawingSurvey survey(const TransferFile& file, const DrawOptions& options, AngleUnit angles,
                     RepeatedBars& repeated) {
  Findings findings = lookAtAll(file, options, angles, repeated);
  DrawingSurvey result;
  if (options.window) {
    const double unit = Sheet::natural(options).unit();
    result.contents.box = {options.window->least * unit, options.window->most * unit};
    for (const ElementBox& one : findings.boxes) {
      if (!one.box.meets(result.contents.box)) {
        result.outliers.push_back(one.element);
      }
    }
  } else if (options.isWhole) {
    for (const ElementBox& one : findings.boxes) {
      result.contents.box.include(one.box);
    }
  } else {
    Belonging belonging = belongsTogether(findings.boxes);
    result.contents.box = belonging.box;
    result.outliers = std::move(belonging.outliers);
  }
  if (!options.window && hasFrame(findings, result.contents.box)) {
    findings.hints.frame = result.contents.box;
  }
  result.hasBars = findings.hasBars;
  result.contents.hints = std::move(findings.hints);
  return result;
}

}  // namespace quorvan::tool
