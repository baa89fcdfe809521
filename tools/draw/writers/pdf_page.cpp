#include <tools/draw/writers/pdf_page.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include <tools/draw/scene/lettering_metrics.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr double kLargestNumber = 1e6;  // mm: readers know no larger numbers
constexpr int kPageDecimals = 3;        // of a millimetre
constexpr int kFineDecimals = 5;        // of what multiplies lengths
constexpr Color kBlank{255, 255, 255};

// Paints in millimetres from the lower left, as a scene is.
class PagePainter {
 public:
  PagePainter(const Scene& scene, const PdfTexts& texts) : m_scene(scene), m_texts(texts) {}

  std::string paint() {
    add({kPointsOfMillimetre, 0.0, 0.0, kPointsOfMillimetre, 0.0, 0.0}, "cm", kFineDecimals);
    setFill(kBlank);
    add({0.0, 0.0, m_scene.width, m_scene.height}, "re");
    m_out += "f\n1 j\n";
    for (const Shape& shape : m_scene.shapes) {
      cut(m_scene.window && shape.layer != Layer::kTitle);
      if (shape.kind == Shape::Kind::kText) {
        paintText(shape.lettering, shape.style);
      } else {
        paintPath(shape);
      }
    }
    cut(false);
    return std::move(m_out);
  }

 private:
  // How strokes and fills are painted, as far as that has been said.
  struct State {
    std::optional<Color> fill;
    std::optional<Color> stroke;
    double width = -1.0;
    double dash = -1.0;  // 0 for a whole line
  };

  void add(std::initializer_list<double> numbers, std::string_view operation,
           int decimals = kPageDecimals) {
    for (const double number : numbers) {
      appendRounded(m_out, std::clamp(number, -kLargestNumber, kLargestNumber), decimals);
      m_out += ' ';
    }
    m_out.append(operation).append(1, '\n');
  }

  void add(PlanePoint point, std::string_view operation) { add({point.x, point.y}, operation); }

  // From here on nothing is painted beyond the window; or anything again.
  void cut(bool isWanted) {
    if (isWanted == m_before.has_value()) {
      return;
    }
    if (!isWanted) {
      m_out += "Q\n";
      m_state = *m_before;
      m_before.reset();
      return;
    }
    m_before = m_state;
    m_out += "q\n";
    const SheetBox& window = *m_scene.window;
    add({window.least.x, window.least.y, window.width(), window.height()}, "re");
    m_out += "W n\n";
  }

  void addColor(const Color& color, std::string_view operation) {
    constexpr double kMost = 255.0;
    add({color.red / kMost, color.green / kMost, color.blue / kMost}, operation);
  }

  void setFill(const Color& color) {
    if (m_state.fill != color) {
      addColor(color, "rg");
      m_state.fill = color;
    }
  }

  void setStroke(const Color& color, double width, double dash) {
    if (m_state.stroke != color) {
      addColor(color, "RG");
      m_state.stroke = color;
    }
    if (m_state.width != width) {
      add({width}, "w");
      m_state.width = width;
    }
    if (m_state.dash != dash) {
      m_out += '[';
      if (dash > 0.0) {
        appendRounded(m_out, dash, kPageDecimals);
        m_out += ' ';
        appendRounded(m_out, kGapOfDash * dash, kPageDecimals);
      }
      m_out += dash > 0.0 ? "]0 d 0 J\n" : "]0 d 1 J\n";
      m_state.dash = dash;
    }
  }

  void paintPath(const Shape& shape) {
    const Style& style = shape.style;
    const bool isStroked = !style.isFilled && style.width > 0.0;
    const bool isFilled = style.isFilled || style.isOnPaper;
    if (!isStroked && !isFilled) {
      return;
    }
    if (isFilled) {
      setFill(style.isFilled ? style.color : kBlank);
    }
    if (isStroked) {
      setStroke(style.color, style.width, style.isDashed ? dashOf(style.width) : 0.0);
    }
    if (shape.kind == Shape::Kind::kCircle) {
      add(shape.center + PlanePoint{shape.radius, 0.0}, "m");
      addArc(shape.center, {shape.radius, 0.0}, 2.0 * std::numbers::pi);
      m_out += "h ";
    } else {
      trace(shape.path);
    }
    m_out += isStroked && isFilled ? "B\n" : isStroked ? "S\n" : "f\n";
  }

  void trace(const Path& path) {
    PlanePoint at;
    for (const PathStep& step : path.steps()) {
      switch (step.kind) {
        case PathStep::Kind::kMove:
          add(step.to, "m");
          break;
        case PathStep::Kind::kLine:
          add(step.to, "l");
          break;
        case PathStep::Kind::kArc: {
          const PlanePoint out = at - step.center;
          if (isFlat(out, step.sweep)) {
            add(step.to, "l");
          } else {
            addArc(step.center, out, step.sweep);
          }
          break;
        }
        case PathStep::Kind::kClose:
          m_out += "h\n";
          continue;
      }
      at = step.to;
    }
  }

  // In pieces of a quarter at the most, each as a curve.
  void addArc(PlanePoint center, PlanePoint out, double sweep) {
    constexpr double kQuarter = std::numbers::pi / 2.0;
    constexpr double kRounding = 1e-9;
    const double pieces = std::max(1.0, std::ceil(std::abs(sweep) / kQuarter - kRounding));
    const double piece = sweep / pieces;
    const double reach = 4.0 / 3.0 * std::tan(piece / 4.0);
    for (double i = 0.0; i < pieces; i += 1.0) {
      const PlanePoint next = turned(out, piece);
      const PlanePoint leave = center + out + leftOf(out) * reach;
      const PlanePoint arrive = center + next - leftOf(next) * reach;
      const PlanePoint to = center + next;
      add({leave.x, leave.y, arrive.x, arrive.y, to.x, to.y}, "c");
      out = next;
    }
  }

  void paintText(const Lettering& text, const Style& style) {
    const double size = fontSizeOf(text.height);
    if (text.text.empty() || !(size > 0.0)) {
      return;
    }
    const PdfText& laid = m_texts.of(text.text);
    const double narrowed = narrowing(text, laid.width * size);
    const PlanePoint along = turned({1.0, 0.0}, text.angle) * size;
    const PlanePoint begin =
        baseOf(text) - along * (shareBefore(text.alignX) * laid.width * narrowed);
    if (style.isOnPaper) {
      // The paper around the letters is no text of the page.
      setStroke(kBlank, haloOf(text.height), 0.0);
      m_out += "/Span<</ActualText()>>BDC\nBT\n1 Tr\n";
      place(along, narrowed, begin);
      m_out.append(laid.outline).append("0 Tr\nET\nEMC\n");
    }
    setFill(style.color);
    m_out += "BT\n";
    place(along, narrowed, begin);
    m_out.append(laid.letters).append("ET\n");
  }

  void place(PlanePoint along, double narrowed, PlanePoint begin) {
    const PlanePoint up = leftOf(along);
    add({along.x * narrowed, along.y * narrowed, up.x, up.y, begin.x, begin.y}, "Tm",
        kFineDecimals);
  }

  const Scene& m_scene;
  const PdfTexts& m_texts;
  std::string m_out;
  State m_state;
  std::optional<State> m_before;  // the window, while it cuts
};

}  // namespace

std::string pdfContent(const Scene& scene, const PdfTexts& texts) {
  return PagePainter(scene, texts).paint();
}

}  // namespace quorvan::tool
