#include <tools/draw/writers/svg_writer.h>

#include <cmath>
#include <map>
#include <numbers>
#include <tuple>

#include <quorvan/text/utf8.h>

#include <tools/draw/scene/lettering_metrics.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr int kDecimals = 3;  // of a millimetre
constexpr const char* kPaper = "#ffffff";

std::string number(double value) {
  return rounded(value, kDecimals);
}

// Whether XML cannot hold the character.
bool isForbiddenInXml(char32_t character) {
  return (character < ' ' && character != '\t' && character != '\n') || character == 0xFFFE ||
         character == 0xFFFF;
}

// Styles by class name, in the order of their first use.
class StyleSheet {
 public:
  explicit StyleSheet(const Scene& scene) {
    for (const Shape& shape : scene.shapes) {
      m_numbers.emplace(keyOf(shape.style), m_numbers.size());
    }
    for (const auto& [key, place] : m_numbers) {
      m_order.emplace(place, key);
    }
  }

  [[nodiscard]] std::string nameOf(const Style& style) const {
    return "s" + std::to_string(m_numbers.at(keyOf(style)));
  }

  void write(std::ostream& out) const {
    out << "<style>\n"
           "svg{font-family:Arial,Helvetica,\"Liberation Sans\",sans-serif;"
           "stroke-linecap:round;stroke-linejoin:round}\n";
    for (const auto& [place, key] : m_order) {
      const auto& [color, width, isFilled, isDashed, isOnPaper] = key;
      const std::string fill = isFilled ? color : isOnPaper ? kPaper : "none";
      out << ".s" << place << "{fill:" << fill;
      if (width > 0.0) {
        out << ";stroke:" << color << ";stroke-width:" << number(width);
      }
      if (isFilled && isOnPaper) {
        out << ";paint-order:stroke;stroke:" << kPaper;
      }
      if (isDashed) {
        out << ";stroke-dasharray:" << number(dashOf(width)) << ' ' << number(dashOf(width) * 0.75)
            << ";stroke-linecap:butt";
      }
      out << "}\n";
    }
    out << "</style>\n";
  }

 private:
  using Key = std::tuple<std::string, double, bool, bool, bool>;

  static Key keyOf(const Style& style) {
    return {webColor(style.color), style.width, style.isFilled, style.isDashed, style.isOnPaper};
  }

  std::map<Key, std::size_t> m_numbers;
  std::map<std::size_t, Key> m_order;
};

class Writer {
 public:
  Writer(const Scene& scene, std::ostream& out) : m_scene(scene), m_styles(scene), m_out(out) {}

  void write(const SvgOptions& options) {
    begin(options);
    m_styles.write(m_out);
    m_out << "<rect class=\"paper\" width=\"" << number(m_scene.width) << "\" height=\""
          << number(m_scene.height) << "\" fill=\"#ffffff\"/>\n";
    writeWindow();
    const Shape* last = nullptr;
    for (const Shape& shape : m_scene.shapes) {
      if (last == nullptr || last->layer != shape.layer) {
        const bool isCut = m_scene.window && shape.layer != Layer::kTitle;
        m_out << (last == nullptr ? "" : "</g>\n") << "<g data-layer=\"" << layerName(shape.layer)
              << (isCut ? "\" clip-path=\"url(#window)" : "") << "\">\n";
      }
      writeShape(shape);
      last = &shape;
    }
    m_out << (last == nullptr ? "" : "</g>\n") << "</svg>\n";
  }

 private:
  void begin(const SvgOptions& options) {
    const std::string width = number(m_scene.width);
    const std::string height = number(m_scene.height);
    if (!options.isEmbedded) {
      m_out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    }
    m_out << "<svg xmlns=\"http://www.w3.org/2000/svg\" ";
    if (!options.isEmbedded) {
      m_out << "width=\"" << width << "mm\" height=\"" << height << "mm\" ";
    }
    m_out << "viewBox=\"0 0 " << width << ' ' << height << "\">\n<title>" << xmlText(m_scene.title)
          << "</title>\n";
  }

  void writeWindow() {
    if (m_scene.window) {
      const SheetBox& window = *m_scene.window;
      m_out << "<clipPath id=\"window\"><rect x=\"" << number(window.least.x) << "\" y=\""
            << number(m_scene.height - window.most.y) << "\" width=\"" << number(window.width())
            << "\" height=\"" << number(window.height()) << "\"/></clipPath>\n";
    }
  }

  // Attributes that every shape has.
  std::string common(const Shape& shape) {
    std::string text =
        " class=\"" + m_styles.nameOf(shape.style) + (shape.isHidden ? " hidden-bar\"" : "\"");
    if (shape.element != kNoElement) {
      text += " data-e=\"" + std::to_string(shape.element) + '"';
    }
    return text;
  }

  void writeShape(const Shape& shape) {
    switch (shape.kind) {
      case Shape::Kind::kPath:
        m_out << "<path" << common(shape) << " d=\"" << pathData(shape.path) << "\"/>\n";
        return;
      case Shape::Kind::kCircle:
        m_out << "<circle" << common(shape) << " cx=\"" << number(shape.center.x) << "\" cy=\""
              << number(m_scene.height - shape.center.y) << "\" r=\"" << number(shape.radius)
              << "\"/>\n";
        return;
      case Shape::Kind::kText:
        writeText(shape);
        return;
    }
  }

  [[nodiscard]] std::string place(PlanePoint point) const {
    return number(point.x) + ' ' + number(m_scene.height - point.y);
  }

  [[nodiscard]] std::string pathData(const Path& path) const {
    std::string data;
    PlanePoint at;
    for (const PathStep& step : path.steps()) {
      switch (step.kind) {
        case PathStep::Kind::kMove:
          data += 'M' + place(step.to);
          break;
        case PathStep::Kind::kLine:
          data += 'L' + place(step.to);
          break;
        case PathStep::Kind::kArc:
          data += arcData(step, at);
          break;
        case PathStep::Kind::kClose:
          data += 'Z';
          continue;
      }
      at = step.to;
    }
    return data;
  }

  // An arc of more than half a turn is cut in two: its ends may be too close to tell its side.
  [[nodiscard]] std::string arcData(const PathStep& step, PlanePoint from) const {
    const std::string radius = number(lengthOf(step.to - step.center));
    // To the left upwards is against the clock, which SVG counts as 0 with y downwards.
    const std::string head =
        'A' + radius + ' ' + radius + " 0 0 " + (step.sweep > 0.0 ? "0 " : "1 ");
    if (std::abs(step.sweep) <= std::numbers::pi * 0.999) {
      return head + place(step.to);
    }
    const PlanePoint middle = step.center + turned(from - step.center, step.sweep / 2.0);
    return head + place(middle) + head + place(step.to);
  }

  void writeText(const Shape& shape) {
    const Lettering& text = shape.lettering;
    const PlanePoint base = baseOf(text);
    m_out << "<text" << common(shape) << " x=\"" << number(base.x) << "\" y=\""
          << number(m_scene.height - base.y) << "\" font-size=\"" << number(fontSizeOf(text.height))
          << '"';
    if (shape.style.isOnPaper) {
      m_out << " stroke-width=\"" << number(haloOf(text.height)) << '"';
    }
    if (text.alignX != AlignX::kLeft) {
      m_out << " text-anchor=\"" << (text.alignX == AlignX::kCentre ? "middle" : "end") << '"';
    }
    const double degrees = -text.angle * 180.0 / std::numbers::pi;
    if (number(degrees) != "0") {
      m_out << " transform=\"rotate(" << number(degrees) << ' ' << place(base) << ")\"";
    }
    m_out << '>' << xmlText(text.text) << "</text>\n";
  }

  const Scene& m_scene;
  StyleSheet m_styles;
  std::ostream& m_out;
};

}  // namespace

void writeSvg(const Scene& scene, const SvgOptions& options, std::ostream& out) {
  Writer(scene, out).write(options);
}

std::string xmlText(std::string_view text) {
  std::string out;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) {
    const char32_t character = decodeUtf8(at, end);
    if (character == '&') {
      out += "&amp;";
    } else if (character == '<') {
      out += "&lt;";
    } else if (character == '>') {
      out += "&gt;";
    } else if (character == '"') {
      out += "&quot;";
    } else if (character == '\r') {
      out += "&#13;";
    } else {
      appendUtf8(out, isForbiddenInXml(character) ? kReplacementCharacter : character);
    }
  }
  return out;
}

}  // namespace quorvan::tool
