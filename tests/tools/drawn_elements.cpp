#include <tests/tools/drawn_elements.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <numbers>
#include <sstream>

#include <tests/tools/loaded_file.h>
#include <tests/tools/sample.h>
#include <tools/bending/bent_bar.h>
#include <tools/draw/element_painter.h>

namespace quorvan::test {

namespace {

std::string numberText(double value) {
  std::ostringstream out;
  out.precision(17);
  out << value;
  return out.str();
}

std::string pointText(const std::string& name, const Coordinates& point) {
  return '<' + name + " X=\"" + numberText(point.x) + "\" Y=\"" + numberText(point.y) + "\" Z=\"" +
         numberText(point.z) + "\"/>";
}

std::string doubleText(const std::string& name, double value) {
  return '<' + name + " double=\"" + numberText(value) + "\"/>";
}

std::string longText(const std::string& name, long value) {
  return '<' + name + " long=\"" + std::to_string(value) + "\"/>";
}

std::string stringText(const std::string& name, const std::string& value) {
  std::string escaped;
  for (const char unit : value) {
    escaped += unit == '&'   ? "&amp;"
               : unit == '<' ? "&lt;"
               : unit == '"' ? "&quot;"
                             : std::string(1, unit);
  }
  return '<' + name + " string=\"" + escaped + "\"/>";
}

std::string flagText(const std::string& name, bool value) {
  return stringText(name, value ? "True" : "False");
}

std::string pointsText(const std::vector<Coordinates>& points) {
  std::string text;
  for (std::size_t i = 0; i < points.size(); ++i) {
    text += pointText("Point" + std::to_string(i + 1), points[i]);
  }
  return text;
}

std::string vectorOfPoints(const std::vector<Coordinates>& points) {
  return "<Vector size=\"" + std::to_string(points.size()) + "\">" + pointsText(points) +
         "</Vector>";
}

std::string numbersText(const std::string& list, const std::string& stem,
                        const std::vector<double>& values) {
  std::string text = '<' + list + " size=\"" + std::to_string(values.size()) + "\">";
  for (std::size_t i = 0; i < values.size(); ++i) {
    text += doubleText(stem + std::to_string(i + 1), values[i]);
  }
  return text + "</" + list + '>';
}

std::string classText(const std::string& name, int index, const std::string& items) {
  return '<' + name + " version=\"1\" index=\"" + std::to_string(index) + "\">" + items + "</" +
         name + '>';
}

}  // namespace

std::string documentOf(const std::string& elements) {
  return "<Document>" + elements + "</Document>";
}

std::string lineOf(const Coordinates& from, const Coordinates& to, long color) {
  return classText("CKtZantoLine", 1, pointsText({from, to}) + longText("Color", color));
}

std::string circleOf(const Coordinates& center, double radius, long color) {
  return classText(
      "CKtZantoCircle", 1,
      pointText("Center", center) + doubleText("Radius", radius) + longText("Color", color));
}

std::string textOf(const TextParts& parts) {
  return classText("CKtZantoText", 1,
                   stringText("Contents", parts.contents) + pointText("Location", parts.at) +
                       doubleText("Angle", parts.angle) + longText("JustificationX", parts.across) +
                       longText("JustificationY", parts.upwards) + longText("Color", parts.color) +
                       doubleText("Height", parts.height));
}

std::string fillOf(const std::vector<Coordinates>& points, long color) {
  return classText("CKtFilledPolygon", 1, vectorOfPoints(points) + longText("Color", color));
}

std::string meshOf(const std::string& reference, const std::string& type,
                   const std::vector<Coordinates>& points) {
  return classText("CKtZantoMesh", 1,
                   stringText("Type", type) + stringText("Reference", reference) +
                       doubleText("Angle", 0) + doubleText("ExtensionX", 0) +
                       doubleText("ExtensionY", 0) + vectorOfPoints(points));
}

std::string formworkOf(const std::vector<tool::Segment>& segments) {
  std::string items = "<Vector size=\"" + std::to_string(2 * segments.size()) + "\">";
  for (std::size_t i = 0; i < segments.size(); ++i) {
    items += pointText("Point" + std::to_string(2 * i + 1), segments[i].start) +
             pointText("Point" + std::to_string(2 * i + 2), segments[i].end) +
             pointText("Bulge" + std::to_string(i + 1), segments[i].bulge);
  }
  return classText("CKtZantoFormwork", 1, items + "</Vector>");
}

std::string concreteOf(double left, double low, double right, double high) {
  const Coordinates corners[] = {
      {left, low, 0}, {right, low, 0}, {right, high, 0}, {left, high, 0}};
  std::vector<tool::Segment> sides;
  for (std::size_t i = 0; i < 4; ++i) {
    sides.push_back({corners[i], corners[(i + 1) % 4], {}});
  }
  return formworkOf(sides);
}

std::string frameOfLines(double left, double low, double right, double high) {
  return lineOf({left, low, 0}, {right, low, 0}) + lineOf({right, low, 0}, {right, high, 0}) +
         lineOf({right, high, 0}, {left, high, 0}) + lineOf({left, high, 0}, {left, low, 0});
}

std::string barOf(const BarParts& parts) {
  std::string items;
  if (parts.className == "FrameCirc") {
    items = pointText("Center", parts.points.at(0)) + pointText("StartPoint", parts.points.at(1)) +
            doubleText("FrameRadius", parts.radius) + doubleText("RecoverLength", parts.overlap);
  } else {
    items = pointsText(parts.points);
  }
  items +=
      doubleText("HookLength1", parts.hookLength1) + doubleText("HookAngle1", parts.hookAngle1) +
      doubleText("HookLength2", parts.hookLength2) + doubleText("HookAngle2", parts.hookAngle2);
  if (parts.className == "StraightBar") {
    items += flagText("Hook1Up", parts.isUp1) + flagText("Hook2Up", parts.isUp2);
  } else if (parts.className == "PolygonBar") {
    items += longText("NoPoints", static_cast<long>(parts.points.size())) +
             longText("Side", parts.side ? 1 : 0);
  }
  items += stringText("SteelGrade", parts.grade) + stringText("Adherence", parts.adherence) +
           doubleText("Diameter", parts.diameter) + longText("Reference", parts.mark) +
           flagText("Hidden", parts.isHidden);
  return classText("CKtZanto" + parts.className, parts.index, items);
}

std::string seriesOf(const SeriesParts& parts) {
  return classText("CKtZantoRepartition", 1,
                   pointsText({parts.start, parts.end}) + pointText("Bulge", {}) +
                       longText("ViewPoint", parts.view) + pointText("Axis", parts.axis) +
                       numbersText("AxisDistancesTop", "DistanceTop", parts.top) +
                       numbersText("AxisDistancesBottom", "DistanceBottom", parts.bottom) +
                       numbersText("Positions", "Positions", parts.positions) +
                       stringText("DefClassName", "CKtZanto" + parts.className) +
                       longText("Index", parts.index) + flagText("Hidden", parts.isHidden));
}

SeriesParts uprightBars(double x, double low, double high, int count, double step) {
  const double middle = (low + high) / 2.0;
  SeriesParts parts;
  parts.start = {x, middle, 0};
  parts.end = {x + step * (count - 1), middle, 0};
  parts.axis = {10, 0, 0};
  parts.top.assign(static_cast<std::size_t>(count), high - middle);
  parts.bottom.assign(static_cast<std::size_t>(count), low - middle);
  parts.positions.assign(static_cast<std::size_t>(count - 1), step);
  return parts;
}

std::string controlOf(const std::string& name, const std::string& version, long servicePack,
                      long checkSum) {
  return classText("CKtDrawingControl", 1,
                   stringText("ZantoVersion", version) + longText("ServicePack", servicePack) +
                       longText("CheckSum", checkSum) + stringText("DrawingName", name));
}

tool::SceneResult sceneOf(const std::string& elements, const tool::DrawOptions& options) {
  writeFile("scene.xml", documentOf(elements));
  std::ostringstream out;
  std::ostringstream err;
  tool::Console console{out, err};
  const tool::TransferFile file("scene.xml", console);
  return buildScene(file, options, console);
}

std::vector<tool::Shape> bareShapesOf(const std::string& elements, tool::AngleUnit angles) {
  const LoadedFile loaded(documentOf(elements));
  const tool::Sheet natural = tool::Sheet::natural({});
  tool::DrawContext context{natural, tool::ColorScheme::kIndex, angles, tool::HiddenBars::kDashed};
  context.isMeasuring = true;
  tool::ShapeSink sink(context);
  tool::RepeatedBars repeated(loaded.file());
  tool::ElementPainter painter(loaded.file(), repeated, sink, nullptr);
  for (const tool::Element& element : loaded.file().elements()) {
    painter.draw(element);
  }
  return sink.take();
}

double centreLineOf(const std::string& elements) {
  const LoadedFile loaded(documentOf(elements));
  const tool::Element& element = loaded.element(0);
  return bend(tool::toBar(*barShapeOf(element), loaded.items(0)), tool::kLengthUnits[0], {})
      .centreLine();
}

double lengthAlong(const tool::Path& path) {
  double length = 0.0;
  tool::PlanePoint at;
  for (const tool::PathStep& step : path.steps()) {
    if (step.kind == tool::PathStep::Kind::kLine) {
      length += lengthOf(step.to - at);
    } else if (step.kind == tool::PathStep::Kind::kArc) {
      length += std::abs(step.sweep) * lengthOf(at - step.center);
    }
    at = step.to;
  }
  return length;
}

double distanceTo(const tool::Path& path, tool::PlanePoint point) {
  double least = std::numeric_limits<double>::infinity();
  tool::PlanePoint at;
  tool::PlanePoint start;
  const auto lookAlong = [&](tool::PlanePoint from, tool::PlanePoint to) {
    const tool::PlanePoint way = to - from;
    const double square = way.x * way.x + way.y * way.y;
    const tool::PlanePoint out = point - from;
    const double share =
        square > 0.0 ? std::clamp((out.x * way.x + out.y * way.y) / square, 0.0, 1.0) : 0.0;
    least = std::min(least, lengthOf(out - way * share));
  };
  for (const tool::PathStep& step : path.steps()) {
    if (step.kind == tool::PathStep::Kind::kMove) {
      start = step.to;
    } else if (step.kind == tool::PathStep::Kind::kClose) {
      lookAlong(at, start);
      continue;
    } else if (step.kind == tool::PathStep::Kind::kLine) {
      lookAlong(at, step.to);
    } else {
      tool::PlanePoint before = at;
      for (int i = 1; i <= 400; ++i) {
        const tool::PlanePoint next =
            step.center + turned(at - step.center, step.sweep * i / 400.0);
        lookAlong(before, next);
        before = next;
      }
    }
    at = step.to;
  }
  return least;
}

tool::DrawOptions atFullSize() {
  tool::DrawOptions options;
  options.scale = 1.0;
  return options;
}

std::vector<tool::Shape> shapesOn(const tool::Scene& scene, tool::Layer layer) {
  std::vector<tool::Shape> found;
  std::ranges::copy_if(scene.shapes, std::back_inserter(found),
                       [layer](const tool::Shape& shape) { return shape.layer == layer; });
  return found;
}

std::vector<tool::Shape> shapesOn(const tool::Scene& scene, tool::Layer layer,
                                  tool::Shape::Kind kind) {
  std::vector<tool::Shape> found = shapesOn(scene, layer);
  std::erase_if(found, [kind](const tool::Shape& shape) { return shape.kind != kind; });
  return found;
}

std::vector<std::string> textsOn(const tool::Scene& scene, tool::Layer layer) {
  std::vector<std::string> texts;
  for (const tool::Shape& shape : shapesOn(scene, layer, tool::Shape::Kind::kText)) {
    texts.push_back(shape.lettering.text);
  }
  return texts;
}

std::vector<tool::PlanePoint> pointsAlong(const tool::Path& path) {
  constexpr double kStep = 2.0 * std::numbers::pi / 50.0;
  std::vector<tool::PlanePoint> points;
  tool::PlanePoint at;
  for (const tool::PathStep& step : path.steps()) {
    if (step.kind == tool::PathStep::Kind::kClose) {
      continue;
    }
    if (step.kind == tool::PathStep::Kind::kArc) {
      const int parts = static_cast<int>(std::abs(step.sweep) / kStep) + 1;
      for (int i = 1; i < parts; ++i) {
        points.push_back(step.center + turned(at - step.center, step.sweep * i / parts));
      }
    }
    points.push_back(step.to);
    at = step.to;
  }
  return points;
}

}  // namespace quorvan::test
