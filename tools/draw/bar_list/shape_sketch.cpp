#include <tools/draw/bar_list/shape_sketch.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include <tools/draw/scene/plain_shapes.h>
#include <tools/draw/scene/text_width.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr double kShortLeg = 7.0;  // mm
constexpr double kLongLeg = 42.0;
constexpr double kSketchBend = 1.6;  // radius
constexpr double kSketchBar = 0.7;
constexpr double kSketchLettering = 2.0;
constexpr double kSketchBeside = 1.1;  // of a dimension from its leg
constexpr double kSketchMargin = 4.2;  // room for the dimensions above and below the bar
constexpr double kSketchSide = 6.4;    // beside it, where angles stand, too
constexpr double kSketchQuarter = std::numbers::pi / 2.0;
constexpr Color kSketchInk{0, 0, 0};

// A leg on the sketch.
struct DrawnLeg {
  PlanePoint begin;
  PlanePoint end;
};

struct SketchBox {
  PlanePoint least{1e9, 1e9};
  PlanePoint most{-1e9, -1e9};

  void add(PlanePoint point) {
    least = {std::min(least.x, point.x), std::min(least.y, point.y)};
    most = {std::max(most.x, point.x), std::max(most.y, point.y)};
  }
  [[nodiscard]] PlanePoint middle() const { return (least + most) * 0.5; }
};

struct SketchOutline {
  Path path;
  std::vector<DrawnLeg> legs;
  std::vector<PlanePoint> bends;  // the middle of each
  SketchBox box;
};

// Long enough for a dimension, and longer where the bar's leg is longer.
double shownLength(double leg, double longest) {
  const double share = longest > 0.0 ? std::sqrt(std::max(leg, 0.0) / longest) : 1.0;
  return kShortLeg + (kLongLeg - kShortLeg) * share;
}

std::vector<double> shownLengths(const BentBar& bent) {
  double longest = 0.0;
  for (const Leg& leg : bent.legs) {
    longest = std::max(longest, leg.axis);
  }
  std::vector<double> lengths;
  for (const Leg& leg : bent.legs) {
    lengths.push_back(shownLength(leg.axis, longest));
  }
  return lengths;
}

// The angle of a hook is any number in a file.
double drawnAngle(const Bend& bend) {
  return std::isfinite(bend.angle) ? std::clamp(bend.angle, 0.0, 2.0 * std::numbers::pi) : 0.0;
}

// The direction of the first leg that makes the longest one level.
double firstDirection(const BentBar& bent) {
  double direction = 0.0;
  double ofLongest = 0.0;
  double longest = 0.0;
  for (std::size_t i = 0; i < bent.legs.size(); ++i) {
    if (bent.legs[i].axis > longest * 1.001) {
      longest = bent.legs[i].axis;
      ofLongest = direction;
    }
    if (i < bent.bends.size()) {
      direction += bent.bends[i].isLeft ? drawnAngle(bent.bends[i]) : -drawnAngle(bent.bends[i]);
    }
  }
  return -ofLongest;
}

SketchOutline planeOutline(const BentBar& bent, double factor) {
  const std::vector<double> lengths = shownLengths(bent);
  SketchOutline outline;
  PlanePoint at;
  PlanePoint way = turned({1.0, 0.0}, firstDirection(bent));
  outline.path.moveTo(at);
  for (std::size_t i = 0; i < lengths.size(); ++i) {
    const PlanePoint end = at + way * (lengths[i] * factor);
    outline.legs.push_back({at, end});
    outline.box.add(at);
    outline.box.add(end);
    outline.path.lineTo(end);
    at = end;
    if (i == bent.bends.size()) {
      break;
    }
    const double side = bent.bends[i].isLeft ? 1.0 : -1.0;
    const double sweep = side * drawnAngle(bent.bends[i]);
    const PlanePoint center = at + leftOf(way) * (side * kSketchBend * factor);
    outline.path.arcTo(center, sweep);
    outline.bends.push_back(center + turned(at - center, sweep / 2.0));
    outline.box.add(outline.bends.back());
    at = outline.path.end();
    way = turned(way, sweep);
  }
  return outline;
}

// Seen from above at an angle, with sharp corners rounded a little.
SketchOutline spatialOutline(const BentBar& bent, double factor) {
  constexpr double kDepth = 0.5;
  const std::vector<double> lengths = shownLengths(bent);
  SketchOutline outline;
  std::vector<PlanePoint> points{{}};
  for (std::size_t i = 0; i < lengths.size() && i + 1 < bent.course.size(); ++i) {
    const Coordinates& a = bent.course[i];
    const Coordinates& b = bent.course[i + 1];
    const double length = std::max(distance(a, b), 1e-9);
    const PlanePoint way{(b.x - a.x + kDepth * (b.y - a.y)) / length,
                         (b.z - a.z + kDepth * (b.y - a.y)) / length};
    points.push_back(points.back() + way * (lengths[i] * factor));
    outline.legs.push_back({points[i], points[i + 1]});
    outline.bends.push_back(points.back());
  }
  outline.bends.pop_back();
  for (const PlanePoint point : points) {
    outline.box.add(point);
  }
  outline.path.addRounded(points, false, kSketchBend * factor);
  return outline;
}

Path moved(const Path& path, PlanePoint by) {
  Path result;
  for (const PathStep& step : path.steps()) {
    if (step.kind == PathStep::Kind::kMove) {
      result.moveTo(step.to + by);
    } else if (step.kind == PathStep::Kind::kLine) {
      result.lineTo(step.to + by);
    } else {
      result.arcTo(step.center + by, step.sweep);
    }
  }
  return result;
}

class Sketch {
 public:
  Sketch(const BarRow& row, const BarList& list, char decimalMark)
      : m_row(row), m_bent(row.bent), m_list(list), m_decimalMark(decimalMark) {
    m_scene.width = kSketchWidth;
    m_scene.height = kSketchHeight;
    m_scene.title = std::to_string(row.mark);
  }

  Scene draw() {
    if (m_bent.legs.empty()) {
      addCircle(middle(), kSketchBar, true);
    } else if (m_bent.shape == BarShape::kFrameCirc) {
      drawRing();
    } else {
      drawLegs();
    }
    return std::move(m_scene);
  }

 private:
  static PlanePoint middle() { return {kSketchWidth / 2.0, kSketchHeight / 2.0}; }

  [[nodiscard]] SketchOutline outline(double factor) const {
    return m_bent.isPlane() ? planeOutline(m_bent, factor) : spatialOutline(m_bent, factor);
  }

  void drawLegs() {
    const SketchBox full = outline(1.0).box;
    const double factor = std::min(
        {1.0, (kSketchWidth - 2.0 * kSketchSide) / std::max(full.most.x - full.least.x, 1e-9),
         (kSketchHeight - 2.0 * kSketchMargin) / std::max(full.most.y - full.least.y, 1e-9)});
    SketchOutline drawn = outline(factor);
    const PlanePoint by = middle() - drawn.box.middle();
    addPath(moved(drawn.path, by));
    for (std::size_t i = 0; i < drawn.legs.size(); ++i) {
      addDimension(i, {drawn.legs[i].begin + by, drawn.legs[i].end + by});
    }
    for (std::size_t i = 0; i < drawn.bends.size(); ++i) {
      addAngle(i, drawn, by);
    }
  }

  // To the right of the way where the bar turns left.
  [[nodiscard]] double outerSide(std::size_t leg) const {
    int lefts = 0;
    if (leg > 0) {
      lefts += m_bent.bends[leg - 1].isLeft ? 1 : -1;
    }
    if (leg < m_bent.bends.size()) {
      lefts += m_bent.bends[leg].isLeft ? 1 : -1;
    }
    return lefts < 0 ? 1.0 : -1.0;
  }

  void addDimension(std::size_t leg, const DrawnLeg& drawn) {
    const PlanePoint way = directionOf(drawn.end - drawn.begin);
    // Texts read from below or from the right.
    const bool isTurned = way.x < -1e-6 || (std::abs(way.x) <= 1e-6 && way.y < 0.0);
    const PlanePoint reading = isTurned ? way * -1.0 : way;
    const PlanePoint out = leftOf(way) * outerSide(leg);
    const bool isAbove = out.x * leftOf(reading).x + out.y * leftOf(reading).y > 0.0;
    Lettering text;
    text.text = dimensionOf(leg);
    text.height = kSketchLettering;
    text.angle = std::atan2(reading.y, reading.x);
    text.alignX = AlignX::kCentre;
    text.alignY = isAbove ? AlignY::kBase : AlignY::kTop;
    text.at = (drawn.begin + drawn.end) * 0.5 + out * kSketchBeside;
    addText(std::move(text));
  }

  // Between the legs, where the bend leaves room.
  void addAngle(std::size_t bend, const SketchOutline& drawn, PlanePoint by) {
    const double angle = m_bent.bends[bend].angle;
    if (std::abs(angle - kSketchQuarter) < 0.01) {
      return;
    }
    const PlanePoint before = directionOf(drawn.legs[bend].begin - drawn.legs[bend].end);
    const PlanePoint after = directionOf(drawn.legs[bend + 1].end - drawn.legs[bend + 1].begin);
    const PlanePoint between = before + after;
    const PlanePoint inward =
        lengthOf(between) > 0.1 ? directionOf(between) : leftOf(before) * -1.0;
    Lettering text;
    text.text = angleText(angle);
    text.height = kSketchLettering * 0.8;
    text.alignX = AlignX::kCentre;
    text.alignY = AlignY::kMiddle;
    // On the outside: inside, hooks and legs are close together. As far off as its size needs.
    const double across = std::abs(inward.x) * textWidth(text.text, text.height) / 2.0 +
                          std::abs(inward.y) * text.height / 2.0;
    const PlanePoint at = drawn.bends[bend] + by - inward * (across + kSketchBeside);
    const PlanePoint half{textWidth(text.text, text.height) / 2.0, text.height / 2.0};
    text.at = {std::clamp(at.x, half.x, kSketchWidth - half.x),
               std::clamp(at.y, half.y, kSketchHeight - half.y)};
    addText(std::move(text));
  }

  void drawRing() {
    const double radius = kSketchHeight / 2.0 - kSketchMargin / 2.0;
    const double overlap = kSketchQuarter / 2.0;
    Path path;
    const PlanePoint center = middle();
    path.moveTo(center + turned({radius - 1.4, 0.0}, kSketchQuarter + overlap));
    path.arcTo(center, -overlap);
    path.lineTo(center + PlanePoint{0.0, radius});
    path.arcTo(center, -2.0 * std::numbers::pi);
    addPath(std::move(path));
    std::vector<std::string> lines;
    const bool hasLetters = !m_row.cutting.legs.empty();
    const double across = 2.0 * m_bent.ringRadius + m_bent.diameter;
    lines.push_back((hasLetters ? "A \u00D8 " : "\u00D8 ") + valueText(across));
    lines.push_back((hasLetters ? "B " : "+ ") + valueText(m_bent.overlap));
    for (std::size_t i = 0; i < m_bent.bends.size(); ++i) {
      const Leg& hook = i == 0 ? m_bent.legs.front() : m_bent.legs.back();
      lines.push_back(valueText(dimensionValue(hook)) + " / " + angleText(m_bent.bends[i].angle));
    }
    double y = center.y + 1.9 * (static_cast<double>(lines.size()) - 1.0);
    for (std::string& line : lines) {
      Lettering text;
      text.text = std::move(line);
      text.height = kSketchLettering;
      text.alignX = AlignX::kCentre;
      text.alignY = AlignY::kMiddle;
      text.at = {center.x, y};
      addText(std::move(text));
      y -= 3.8;
    }
  }

  [[nodiscard]] bool isAxis() const { return m_list.options.cutting.schedule == Schedule::kAxis; }

  [[nodiscard]] double dimensionValue(const Leg& leg) const {
    return isAxis() ? leg.axis : leg.outside;
  }

  [[nodiscard]] std::string localized(std::string text) const {
    std::ranges::replace(text, '.', m_decimalMark);
    return text;
  }

  [[nodiscard]] std::string valueText(double value) const {
    const double step = m_list.options.cutting.legStep;
    const double shown = roundedTo(value, step > 0.0 ? step : 1.0, Rounding::kNearest);
    return localized(rounded(shown, 1));
  }

  [[nodiscard]] std::string angleText(double angle) const {
    const double degrees = angle * 180.0 / std::numbers::pi;
    return (std::isfinite(degrees) ? localized(rounded(degrees, 1)) : "?") + "\u00B0";
  }

  // Of a series of several lengths the longest is shown.
  [[nodiscard]] std::string dimensionOf(std::size_t leg) const {
    const Leg& one = m_bent.legs[leg];
    std::string text = one.isUnknown ? "?" : valueText(dimensionValue(one));
    const bool isHook = (leg == 0 && m_bent.beginsWithHook) ||
                        (leg + 1 == m_bent.legs.size() && m_bent.endsWithHook);
    if (m_row.varies() && !isHook) {
      text = "\u2264 " + text;
    }
    if (leg < m_row.cutting.legs.size()) {
      text = m_row.cutting.legs.substr(leg, 1) + ' ' + text;
    }
    return text;
  }

  void addPath(Path path) {
    m_scene.shapes.push_back(lineShape(Layer::kBars, kSketchInk, kSketchBar, std::move(path)));
  }

  void addCircle(PlanePoint center, double radius, bool isFilled) {
    m_scene.shapes.push_back(circleShape(Layer::kEndOn, kSketchInk, center, radius, isFilled));
  }

  void addText(Lettering text) { m_scene.shapes.push_back(textShape(std::move(text), kSketchInk)); }

  const BarRow& m_row;
  const BentBar& m_bent;
  const BarList& m_list;
  char m_decimalMark;
  Scene m_scene;
};

}  // namespace

Scene sketchOf(const BarRow& row, const BarList& list, char decimalMark) {
  return Sketch(row, list, decimalMark).draw();
}

}  // namespace quorvan::tool
