#include <tools/draw/writers/svg_writer.h>

#include <cmath>
#include <map>
#include <numbers>
#include <string>
#include <tuple>
#include <vector>

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
      nameOf(shape.style);
    }
  }

  const std::string& nameOf(const Style& style) {
    const Key key{style.color.red, style.color.green, style.color.blue, style.width,
                  style.isFilled,  style.isDashed,    style.isOnPaper};
    if (m_last != nullptr && m_last->first == key) {
      return m_last->second;
    }
    const auto [at, isNew] = m_names.try_emplace(key);
    if (isNew) {
      at->second = "s" + std::to_string(m_styles.size());
      m_styles.push_back(style);
    }
    m_last = &*at;
    return at->second;
  }

  void write(std::ostream& out) const {
    out << "<style>\n"
           "svg{font-family:Arial,Helvetica,\"Liberation Sans\",sans-serif;"
           "stroke-linecap:round;stroke-linejoin:round}\n"
           // A text runs from the side that its first letter does.
           "text{unicode-bidi:plaintext}\n";
    for (std::size_t place = 0; place < m_styles.size(); ++place) {
      const Style& style = m_styles[place];
      const std::string color = webColor(style.color);
      const std::string fill = style.isFilled ? color : style.isOnPaper ? kPaper : "none";
      out << ".s" << place << "{fill:" << fill;
      if (style.width > 0.0) {
        out << ";stroke:" << color << ";stroke-width:" << number(style.width);
      }
      if (style.isFilled && style.isOnPaper) {
        out << ";paint-order:stroke;stroke:" << kPaper;
      }
      if (style.isDashed) {
        out << ";stroke-dasharray:" << number(dashOf(style.width)) << ' '
            << number(kGapOfDash * dashOf(style.width)) << ";stroke-linecap:butt";
      }
      out << "}\n";
    }
    out << "</style>\n";
  }

 private:
  using Key = std::tuple<std::uint8_t, std::uint8_t, std::uint8_t, double, bool, bool, bool>;

  std::map<Key, std::string> m_names;
  std::vector<Style> m_styles;
  const std::map<Key, std::string>::value_type* m_last = nullptr;  // most often it comes again
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

  // Begins the element of a shape, with the attributes that every shape has.
  void open(std::string_view name, const Shape& shape) {
    m_line.append(1, '<').append(name).append(" class=\"").append(m_styles.nameOf(shape.style));
    m_line += shape.isHidden ? " hidden-bar\"" : "\"";
    if (shape.element != kNoElement) {
      m_line.append(" data-e=\"").append(std::to_string(shape.element)).append(1, '"');
    }
  }

  void writeShape(const Shape& shape) {
    m_line.clear();
    switch (shape.kind) {
      case Shape::Kind::kPath:
        addPath(shape);
        break;
      case Shape::Kind::kCircle:
        addCircle(shape);
        break;
      case Shape::Kind::kText:
        addText(shape);
        break;
    }
    m_out << m_line;
  }

  void addNumber(std::string_view attribute, double value) {
    m_line.append(1, ' ').append(attribute).append("=\"");
    appendRounded(m_line, value, kDecimals);
    m_line += '"';
  }

  void addPlace(PlanePoint point) {
    appendRounded(m_line, point.x, kDecimals);
    m_line += ' ';
    appendRounded(m_line, m_scene.height - point.y, kDecimals);
  }

  void addCircle(const Shape& shape) {
    open("circle", shape);
    addNumber("cx", shape.center.x);
    addNumber("cy", m_scene.height - shape.center.y);
    addNumber("r", shape.radius);
    m_line += "/>\n";
  }

  void addPath(const Shape& shape) {
    open("path", shape);
    m_line += " d=\"";
    PlanePoint at;
    for (const PathStep& step : shape.path.steps()) {
      switch (step.kind) {
        case PathStep::Kind::kMove:
        case PathStep::Kind::kLine:
          m_line += step.kind == PathStep::Kind::kMove ? 'M' : 'L';
          addPlace(step.to);
          break;
        case PathStep::Kind::kArc:
          addArc(step, at);
          break;
        case PathStep::Kind::kClose:
          m_line += 'Z';
          continue;
      }
      at = step.to;
    }
    m_line += "\"/>\n";
  }

  // An arc of more than half a turn is cut in two: its ends may be too close to tell its side.
  void addArc(const PathStep& step, PlanePoint from) {
    constexpr double kMostSweep = std::numbers::pi * 0.999;
    if (std::abs(step.sweep) > kMostSweep) {
      addArcTo(step, step.center + turned(from - step.center, step.sweep / 2.0));
    }
    addArcTo(step, step.to);
  }

  void addArcTo(const PathStep& step, PlanePoint to) {
    const double radius = lengthOf(step.to - step.center);
    m_line += 'A';
    appendRounded(m_line, radius, kDecimals);
    m_line += ' ';
    appendRounded(m_line, radius, kDecimals);
    // To the left upwards is against the clock, which SVG counts as 0 with y downwards.
    m_line += step.sweep > 0.0 ? " 0 0 0 " : " 0 0 1 ";
    addPlace(to);
  }

  void addText(const Shape& shape) {
    const Lettering& text = shape.lettering;
    const PlanePoint base = baseOf(text);
    open("text", shape);
    addNumber("x", base.x);
    addNumber("y", m_scene.height - base.y);
    addNumber("font-size", fontSizeOf(text.height));
    if (shape.style.isOnPaper) {
      addNumber("stroke-width", haloOf(text.height));
    }
    if (text.alignX != AlignX::kLeft) {
      m_line += text.alignX == AlignX::kCentre ? " text-anchor=\"middle\"" : " text-anchor=\"end\"";
    }
    const std::string degrees = number(-text.angle * 180.0 / std::numbers::pi);
    if (degrees != "0") {
      m_line.append(" transform=\"rotate(").append(degrees).append(1, ' ');
      addPlace(base);
      m_line += ")\"";
    }
    m_line.append(1, '>').append(xmlText(text.text)).append("</text>\n");
  }

  const Scene& m_scene;
  StyleSheet m_styles;
  std::ostream& m_out;
  std::string m_line;  // the element that is being written
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
