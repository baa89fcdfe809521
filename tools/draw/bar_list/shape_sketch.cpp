#include <tools/draw/bar_list/shape_sketch.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include <tools/draw/bar_list/sketch_outline.h>
#include <tools/draw/scene/occupancy.h>
#include <tools/draw/scene/plain_shapes.h>
#include <tools/draw/scene/text_width.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr double kSketchBar = 0.7;
constexpr double kSketchLettering = 2.0;
constexpr double kSketchBeside = 1.1;  // of a dimension from its leg
// Near the middle on either side, before near the ends.
constexpr double kAlongLeg[][4] = {{0.5, 0.44, 0.56, 0.38}, {0.62, 0.25, 0.75, 0.88}};
constexpr double kSketchMargin = 4.2;  // room for the dimensions above and below the bar
constexpr double kSketchSide = 6.4;    // beside it, where angles stand, too
constexpr double kSketchQuarter = std::numbers::pi / 2.0;
constexpr Color kSketchInk{0, 0, 0};

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

  void drawLegs() {
    const SketchBox full = sketchOutline(m_bent, 1.0).box;
    const double factor = std::min(
        {1.0, (kSketchWidth - 2.0 * kSketchSide) / std::max(full.most.x - full.least.x, 1e-9),
         (kSketchHeight - 2.0 * kSketchMargin) / std::max(full.most.y - full.least.y, 1e-9)});
    const SketchOutline drawn = sketchOutline(m_bent, factor);
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

  // Outside and in the middle, or where it covers least.
  void addDimension(std::size_t leg, const DrawnLeg& drawn) {
    const PlanePoint way = directionOf(drawn.end - drawn.begin);
    // Texts read from below or from the right.
    const bool isTurned = way.x < -1e-6 || (std::abs(way.x) <= 1e-6 && way.y < 0.0);
    const PlanePoint reading = isTurned ? way * -1.0 : way;
    Lettering text;
    text.text = dimensionOf(leg);
    text.height = kSketchLettering;
    text.angle = std::atan2(reading.y, reading.x);
    text.alignX = AlignX::kCentre;
    std::vector<Lettering> places;
    for (const auto& shares : kAlongLeg) {
      for (const double side : {1.0, -1.0}) {
        const PlanePoint out = leftOf(way) * (side * outerSide(leg));
        const bool isAbove = out.x * leftOf(reading).x + out.y * leftOf(reading).y > 0.0;
        text.alignY = isAbove ? AlignY::kBase : AlignY::kTop;
        for (const double share : shares) {
          text.at = drawn.begin + (drawn.end - drawn.begin) * share + out * kSketchBeside;
          places.push_back(text);
        }
      }
    }
    addText(bestOf(places));
  }

  // Outside the bend, where hooks and legs leave room, or where it covers least.
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
    const PlanePoint half{textWidth(text.text, text.height) / 2.0, text.height / 2.0};
    std::vector<Lettering> places;
    for (const double further : {0.0, 1.0, 2.0}) {
      for (const double turn : {0.0, 0.5, -0.5, 1.0, -1.0, 2.0}) {
        const PlanePoint out = turned(inward * -1.0, turn * kSketchQuarter);
        // As far off as its size needs.
        const double across = std::abs(out.x) * half.x + std::abs(out.y) * half.y;
        const PlanePoint at = drawn.bends[bend] + by + out * (across + kSketchBeside + further);
        text.at = {std::clamp(at.x, half.x, kSketchWidth - half.x),
                   std::clamp(at.y, half.y, kSketchHeight - half.y)};
        places.push_back(text);
      }
    }
    addText(bestOf(places));
  }

  // The first of those that cover least.
  [[nodiscard]] const Lettering& bestOf(const std::vector<Lettering>& places) const {
    return *std::ranges::min_element(places, {},
                                     [this](const Lettering& text) { return m_taken.cost(text); });
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
    m_taken.take(path, Occupancy::Kind::kLine);
    m_scene.shapes.push_back(lineShape(Layer::kBars, kSketchInk, kSketchBar, std::move(path)));
  }

  void addCircle(PlanePoint center, double radius, bool isFilled) {
    m_scene.shapes.push_back(circleShape(Layer::kEndOn, kSketchInk, center, radius, isFilled));
  }

  void addText(Lettering text) {
    m_taken.take(text);
    m_scene.shapes.push_back(textShape(std::move(text), kSketchInk));
  }

  const BarRow& m_row;
  const BentBar& m_bent;
  const BarList& m_list;
  char m_decimalMark;
  Scene m_scene;
  Occupancy m_taken{kSketchWidth, kSketchHeight};
};

}  // namespace

Scene sketchOf(const BarRow& row, const BarList& list, char decimalMark) {
  return Sketch(row, list, decimalMark).draw();
}

}  // namespace quorvan::tool
