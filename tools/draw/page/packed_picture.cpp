#include <tools/draw/page/packed_picture.h>

#include <algorithm>
#include <cmath>
#include <future>
#include <numbers>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <tools/draw/page/packed_numbers.h>
#include <tools/draw/page/script_json.h>
#include <tools/draw/page/shape_grid.h>
#include <tools/draw/scene/lettering_metrics.h>

namespace quorvan::tool {

namespace {

constexpr double kPerMillimetre = 1000.0;

// A length in thousandths; far beyond any sheet no farther than a kilometre.
std::int64_t thousandths(double length) {
  constexpr double kFarthest = 1e9;
  return std::llround(std::clamp(length * kPerMillimetre, -kFarthest, kFarthest));
}

// Dash and gap in thousandths, as an SVG has them: what is longer by less adds up along a line.
Json dashesOf(const Style& style) {
  if (!style.isDashed) {
    return Json::array();
  }
  const double dash = dashOf(style.width);
  return Json::array({thousandths(dash), thousandths(kGapOfDash * dash)});
}

struct WholePoint {
  std::int64_t x = 0;
  std::int64_t y = 0;

  friend bool operator==(const WholePoint&, const WholePoint&) = default;
};

void addWay(PackedNumbers& numbers, WholePoint from, WholePoint to) {
  numbers.addSigned(to.x - from.x);
  numbers.addSigned(to.y - from.y);
}

// Numbers of what is there already, by what it is.
class Known {
 public:
  // The number, and whether it is new.
  std::pair<std::size_t, bool> numberOf(std::string text) {
    const auto [at, isNew] = m_numbers.try_emplace(std::move(text), m_numbers.size());
    return {at->second, isNew};
  }

 private:
  std::unordered_map<std::string, std::size_t> m_numbers;
};

// The steps of a path from its first point, which is no part of them: bars of a series have one
// body.
class BodyWriter {
 public:
  explicit BodyWriter(const Path& path) : m_steps(path.steps()), m_origin(m_steps.front().to) {}

  std::string write() {
    for (std::size_t i = 1; i < m_steps.size(); ++i) {
      add(m_steps[i]);
    }
    flush();
    m_numbers.add(0);
    return m_numbers.take();
  }

 private:
  enum class Run : std::uint8_t { kLine, kLeft, kRight, kCircle, kMove, kClose };

  // Relative to the origin, so that equal shapes are equal wherever they lie.
  [[nodiscard]] WholePoint whole(PlanePoint point) const {
    return {thousandths(point.x - m_origin.x), thousandths(m_origin.y - point.y)};
  }

  void add(const PathStep& step) {
    const WholePoint to = whole(step.to);
    if (step.kind == PathStep::Kind::kClose) {
      begin(Run::kClose);
    } else if (step.kind == PathStep::Kind::kArc) {
      addArc(step, to);
    } else {
      begin(step.kind == PathStep::Kind::kLine ? Run::kLine : Run::kMove);
      addWay(m_run, m_at, to);
    }
    if (step.kind != PathStep::Kind::kClose) {
      m_at = to;
    }
  }

  void addArc(const PathStep& step, WholePoint to) {
    const bool isWhole = to == m_at && std::abs(step.sweep) > std::numbers::pi;
    if (to == m_at && !isWhole) {
      begin(Run::kLine);
      return addWay(m_run, m_at, to);
    }
    begin(isWhole ? Run::kCircle : step.sweep > 0.0 ? Run::kLeft : Run::kRight);
    addWay(m_run, m_at, whole(step.center));
    if (!isWhole) {
      addWay(m_run, m_at, to);
    }
  }

  void begin(Run kind) {
    if (m_count > 0 && kind != m_kind) {
      flush();
    }
    m_kind = kind;
    ++m_count;
  }

  void flush() {
    if (m_count > 0) {
      m_numbers.add(m_count * 8 + static_cast<std::uint64_t>(m_kind));
      m_numbers.append(m_run.take());
      m_run = {};
      m_count = 0;
    }
  }

  const std::vector<PathStep>& m_steps;
  PlanePoint m_origin;
  WholePoint m_at;
  PackedNumbers m_numbers;
  PackedNumbers m_run;
  Run m_kind = Run::kLine;
  std::uint64_t m_count = 0;
};

class PictureWriter {
 public:
  PictureWriter(const Scene& scene, std::ostream& out) : m_scene(scene), m_out(out) {}

  void write() {
    std::future<std::string> grid = std::async([this] { return gridText(); });
    for (const Shape& shape : m_scene.shapes) {
      add(shape);
    }
    m_out << "{\"width\": " << scriptJson(m_scene.width)
          << ", \"height\": " << scriptJson(m_scene.height)
          << ",\n\"count\": " << m_scene.shapes.size() << ", \"window\": " << scriptJson(window())
          << ",\n\"layers\": " << scriptJson(layers()) << ",\n\"styles\": " << scriptJson(m_styles)
          << ",\n\"texts\": " << scriptJson(m_texts) << ",\n\"bodyCount\": " << m_bodyCount
          << ",\n\"bodies\": \"" << base64(m_bodies.bytes()) << "\",\n\"shapes\": \""
          << base64(m_shapes.bytes()) << "\",\n\"grid\": " << grid.get() << "}";
  }

 private:
  void add(const Shape& shape) {
    m_shapes.add(styleOf(shape.style) * 8 + static_cast<std::uint64_t>(shape.kind) * 2 +
                 (shape.isHidden ? 1 : 0));
    addElement(shape.element);
    switch (shape.kind) {
      case Shape::Kind::kPath:
        addOrigin(shape.path.steps().front().to);
        m_shapes.add(bodyOf(shape.path));
        return;
      case Shape::Kind::kCircle:
        addOrigin(shape.center);
        m_shapes.add(static_cast<std::uint64_t>(thousandths(std::abs(shape.radius))));
        return;
      case Shape::Kind::kText:
        addText(shape.lettering);
        return;
    }
  }

  void addElement(std::uint32_t element) {
    if (element == kNoElement) {
      return m_shapes.add(0);
    }
    const std::int64_t way = std::int64_t{element} - m_element;
    m_shapes.add(1 + static_cast<std::uint64_t>(way < 0 ? -2 * way - 1 : 2 * way));
    m_element = element;
  }

  void addOrigin(PlanePoint point) {
    const WholePoint at{thousandths(point.x), thousandths(m_scene.height - point.y)};
    addWay(m_shapes, m_at, at);
    m_at = at;
  }

  void addText(const Lettering& text) {
    addOrigin(baseOf(text));
    const auto [number, isNew] = m_knownTexts.numberOf(text.text);
    if (isNew) {
      m_texts.push_back(text.text);
    }
    m_shapes.add(number);
    m_shapes.add(static_cast<std::uint64_t>(
        std::max<std::int64_t>(0, thousandths(fontSizeOf(text.height)))));
    m_shapes.addSigned(thousandths(std::remainder(-text.angle * 180.0 / std::numbers::pi, 360.0)));
    m_shapes.add(static_cast<std::uint64_t>(text.alignX));
  }

  std::size_t bodyOf(const Path& path) {
    std::string body = BodyWriter(path).write();
    const auto [number, isNew] = m_knownBodies.numberOf(body);
    if (isNew) {
      m_bodies.append(body);
      ++m_bodyCount;
    }
    return number;
  }

  std::size_t styleOf(const Style& style) {
    if (m_lastStyle && *m_lastStyle == style) {
      return m_lastStyleNumber;
    }
    Json text = Json::array({webColor(style.color), std::round(style.width * kPerMillimetre),
                             style.isFilled, dashesOf(style), style.isOnPaper});
    const auto [number, isNew] = m_knownStyles.numberOf(text.dump());
    if (isNew) {
      m_styles.push_back(std::move(text));
    }
    m_lastStyle = style;
    m_lastStyleNumber = number;
    return number;
  }

  [[nodiscard]] Json window() const {
    if (!m_scene.window) {
      return {};
    }
    const SheetBox& window = *m_scene.window;
    return Json::array(
        {window.least.x, m_scene.height - window.most.y, window.width(), window.height()});
  }

  // [name, how many shapes of it come one after the other]
  [[nodiscard]] Json layers() const {
    Json all = Json::array();
    const std::vector<Shape>& shapes = m_scene.shapes;
    for (auto at = shapes.begin(); at != shapes.end();) {
      const auto end =
          std::find_if(at, shapes.end(), [&](const Shape& one) { return one.layer != at->layer; });
      all.push_back(Json::array({layerName(at->layer), end - at}));
      at = end;
    }
    return all;
  }

  [[nodiscard]] std::string gridText() const {
    const ShapeGrid grid = gridOf(m_scene.shapes);
    PackedNumbers cells;
    const auto addAll = [&](auto begin, auto end) {
      cells.add(static_cast<std::uint64_t>(end - begin));
      std::uint32_t before = 0;
      for (; begin != end; ++begin) {
        cells.add(*begin - before);
        before = *begin;
      }
    };
    addAll(grid.wide.begin(), grid.wide.end());
    for (std::size_t cell = 0; cell + 1 < grid.begins.size(); ++cell) {
      addAll(grid.shapes.begin() + grid.begins[cell], grid.shapes.begin() + grid.begins[cell + 1]);
    }
    const Json box = {grid.box.least.x, m_scene.height - grid.box.most.y, grid.box.width(),
                      grid.box.height()};
    return "{\"columns\": " + std::to_string(grid.columns) +
           ", \"rows\": " + std::to_string(grid.rows) + ", \"box\": " + scriptJson(box) +
           ", \"entries\": " + std::to_string(grid.shapes.size()) + ",\n\"cells\": \"" +
           base64(cells.bytes()) + "\"}";
  }

  const Scene& m_scene;
  std::ostream& m_out;
  PackedNumbers m_shapes;
  PackedNumbers m_bodies;
  std::size_t m_bodyCount = 0;
  Json m_styles = Json::array();
  Json m_texts = Json::array();
  Known m_knownStyles;
  Known m_knownTexts;
  Known m_knownBodies;
  std::optional<Style> m_lastStyle;
  std::size_t m_lastStyleNumber = 0;
  WholePoint m_at;
  std::int64_t m_element = 0;
};

}  // namespace

void writePackedPicture(const Scene& scene, std::ostream& out) {
  PictureWriter(scene, out).write();
}

}  // namespace quorvan::tool
