#include <tools/draw/dxf_drawing.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include <tools/console/progress.h>
#include <tools/draw/drawing_survey.h>
#include <tools/draw/dxf/bar_outline.h>
#include <tools/draw/dxf/dxf_file.h>
#include <tools/draw/dxf/series_blocks.h>
#include <tools/draw/dxf/text_code.h>
#include <tools/draw/element_painter.h>
#include <tools/draw/scene/painted_box.h>

namespace quorvan::tool {

namespace {

// Beyond this, a number of a drawing holds no hundredths any more.
constexpr double kFarthest = 1e12;
constexpr double kUnstatedLettering = 2.5;  // mm of paper
constexpr std::size_t kLongestInR12 = 255;
constexpr std::size_t kLongest = 2048;
constexpr std::size_t kLongestMark = 255;

bool isPlaced(const SheetBox& box) {
  return box.least.x >= -kFarthest && box.least.y >= -kFarthest && box.most.x <= kFarthest &&
         box.most.y <= kFarthest;
}

// The box around a shape without the width of its line; false where it has no place in a DXF.
bool measure(const Shape& shape, SheetBox& box) {
  const SheetBox painted = paintedBox(shape);
  const double width = shape.style.width;
  if (painted.isEmpty() || !isPlaced(painted) || !(width <= kFarthest)) {
    return false;
  }
  box.include(painted.grown(-width / 2.0));
  return true;
}

// The index as the file's palette has it, where the number is one.
int colorIndex(std::int64_t number, ColorScheme scheme) {
  if (scheme != ColorScheme::kIndex) {
    return nearestIndex(colorOf(number, scheme));
  }
  return number >= 0 && number <= kByLayer ? static_cast<int>(number) : nearestIndex({});
}

class Drawer {
 public:
  Drawer(const TransferFile& file, const DrawOptions& options, const DxfOptions& dxf)
      : m_file(file),
        m_options(options),
        m_dxf(dxf),
        m_angles(options.angles ? *options.angles : guessAngleUnit(file).unit),
        m_colors(options.colors ? *options.colors : guessColorScheme(file)),
        m_repeated(file),
        m_survey(survey(file, options, m_angles, m_repeated)),
        m_scale(Sheet(m_survey.contents, options).scale()),
        m_sheet(Sheet::inDrawingUnits(options)),
        m_sink(contextOf()),
        m_painter(file, m_repeated, m_sink, nullptr),
        m_out(dxf.version, m_scale, options.hidden == HiddenBars::kDashed) {}

  void draw(Progress& progress) {
    for (const Element& element : m_file.elements()) {
      progress.report(element.place, m_file.elements().size());
      if (element.schema != nullptr) {
        draw(element);
      }
    }
    m_losses.withoutHeight = m_sink.withoutHeight();
  }

  void write(std::ostream& out) {
    DxfHeader header;
    header.unitInMetres = m_options.unit->inMetres;
    header.paper = m_sheet.ofMillimetres(m_scale);
    header.lettering = m_sink.context().lettering;
    const SheetBox sheet{{}, PlanePoint{420.0, 297.0} * header.paper};
    header.extents = m_extents.isEmpty() ? sheet : m_extents;
    header.view = header.extents;
    if (!m_extents.isEmpty() && !m_survey.contents.box.isEmpty()) {
      const double unit = m_sheet.ofMillimetres(1.0);
      header.view = {m_survey.contents.box.least * unit, m_survey.contents.box.most * unit};
    }
    m_out.write(header, out);
  }

  [[nodiscard]] DxfLosses& losses() noexcept { return m_losses; }

 private:
  [[nodiscard]] DrawContext contextOf() const {
    DrawContext context{m_sheet, m_colors, m_angles, m_options.hidden};
    context.isMeasuring = true;
    context.paper = m_sheet.ofMillimetres(m_scale);
    const double usual =
        usualHeight(m_survey.contents.hints).value_or(kUnstatedLettering * m_scale);
    context.lettering = m_sheet.ofMillimetres(usual);
    return context;
  }

  void draw(const Element& element) {
    const std::uint64_t leftOut = m_sink.leftOut();
    m_painter.draw(element);
    std::vector<Shape> shapes = m_sink.take();
    std::erase_if(shapes, [this](const Shape& shape) { return !m_options.shows(shape.layer); });
    SheetBox box = SheetBox::none();
    bool isWhole = m_sink.leftOut() == leftOut;
    for (const Shape& shape : shapes) {
      isWhole = isWhole && measure(shape, box);
    }
    if (!isWhole) {
      m_losses.leftOut.push_back(element.place);
      return;
    }
    if (shapes.empty() || (m_options.window && !box.meets(*m_options.window))) {
      return;
    }
    m_extents.include(box);
    begin(element);
    for (const Shape& shape : shapes) {
      add(shape);
    }
  }

  // What is the same for all entities of an element.
  void begin(const Element& element) {
    m_element = &element;
    const std::string_view index = m_file.indexOf(element);
    std::int32_t number = 0;
    std::from_chars(index.data(), index.data() + index.size(), number);
    m_data.clear();
    m_data.text(1001, kApplicationName);
    m_data.text(1000, element.className());
    m_data.integer(1071, number);
    m_data.text(1000, markOf());
    const ItemValue* const color = findItem(m_painter.items(), "Color");
    m_color = color == nullptr ? kByLayer : colorIndex(color->integer, m_colors);
  }

  [[nodiscard]] std::string markOf() const {
    if (const Bar* const bar = m_painter.bar()) {
      return std::to_string(bar->reference);
    }
    const ItemValue* const reference = findItem(m_painter.items(), "Reference");
    TextLosses losses;
    return reference == nullptr ? std::string() : dxfText(reference->text, kLongestMark, losses);
  }

  EntityLook lookOf(const Shape& shape) {
    const bool isBar = shape.style.isBar || shape.layer == Layer::kEndOn;
    const Bar* const bar = m_painter.bar();
    LayerKey key;
    key.kind = shape.layer;
    key.isHidden = shape.isHidden;
    key.isOutline = m_dxf.bars == BarLines::kOutline;
    if (isBar && bar != nullptr) {
      key.diameter = std::abs(bar->diameter) * m_sheet.unit();
    }
    if (isBar && shape.layer == Layer::kRepartitions) {
      key.repeated = bar != nullptr && bar->isLink() ? Layer::kLinks : Layer::kBars;
    }
    return {m_out.layers().nameOf(key), m_color, m_data.bytes()};
  }

  void add(const Shape& shape) {
    const EntityLook look = lookOf(shape);
    EntityWriter out = m_out.entities(shape.layer);
    switch (shape.kind) {
      case Shape::Kind::kText:
        return addText(shape.lettering, look, out);
      case Shape::Kind::kCircle:
        return addCircle(shape, look, out);
      case Shape::Kind::kPath:
        break;
    }
    if (shape.layer == Layer::kFills) {
      return addFill(bulgePathsOf(shape.path).front(), look, out);
    }
    if (shape.style.isBar && shape.layer == Layer::kRepartitions) {
      return addSeries(shape, look, out);
    }
    for (const BulgePath& path : bulgePathsOf(shape.path)) {
      if (shape.style.isBar) {
        addBar(path, shape.style.width, look, out);
      } else {
        addStrokes(path, shape.layer, look, out);
      }
    }
  }

  void addText(const Lettering& lettering, const EntityLook& look, EntityWriter& out) {
    TextLosses losses;
    const std::string text = dxfText(
        lettering.text, m_dxf.version == DxfVersion::kR12 ? kLongestInR12 : kLongest, losses);
    note(losses.isCut, m_losses.cut);
    note(losses.isEscaped, m_losses.escaped);
    note(losses.isBroken, m_losses.broken);
    if (text.find_first_not_of(' ') != std::string::npos) {
      out.text(look, lettering, text, cornersOf(lettering).corners[0]);
    }
  }

  void note(bool isSo, std::vector<std::uint32_t>& elements) const {
    if (isSo && (elements.empty() || elements.back() != m_element->place)) {
      elements.push_back(m_element->place);
    }
  }

  // A ring that is a bar has its width; a bar seen end-on is filled, but for its outline.
  void addCircle(const Shape& shape, const EntityLook& look, EntityWriter& out) const {
    if (!(shape.radius > 0.0)) {
      return out.point(look, shape.center);
    }
    const double half = shape.style.isBar ? shape.style.width / 2.0 : 0.0;
    if (half > 0.0 && m_dxf.bars == BarLines::kWidth) {
      const PlanePoint radius{shape.radius, 0.0};
      return out.polyline(look,
                          {{{shape.center - radius, 1.0}, {shape.center + radius, 1.0}}, true},
                          shape.style.width);
    }
    if (half > 0.0 && m_dxf.bars == BarLines::kOutline) {
      if (shape.radius > half) {
        out.circle(look, shape.center, shape.radius - half);
      }
      return out.circle(look, shape.center, shape.radius + half);
    }
    if (shape.layer == Layer::kEndOn && m_dxf.bars != BarLines::kOutline) {
      out.disc(look, shape.center, shape.radius);
    }
    out.circle(look, shape.center, shape.radius);
  }

  void addFill(const BulgePath& outline, const EntityLook& look, EntityWriter& out) {
    std::vector<PlanePoint> corners;
    for (const BulgeVertex& vertex : outline.vertices) {
      corners.push_back(vertex.at);
    }
    // Programs leave empty what a hatch goes round twice.
    if (m_dxf.version == DxfVersion::k2000 && corners.size() > 2 &&
        !m_cutter.crossesItself(corners)) {
      return out.hatch(look, outline);
    }
    bool isWhole = true;
    for (const FillPiece& piece : m_cutter.cut(corners, isWhole)) {
      out.solid(look, piece);
    }
    note(!isWhole, m_losses.intricate);
    if (!isWhole) {
      out.polyline(look, outline, 0.0);
    }
  }

  void addBar(const BulgePath& path, double width, const EntityLook& look,
              EntityWriter& out) const {
    if (path.vertices.size() < 2) {
      return out.point(look, path.vertices.front().at);
    }
    if (m_dxf.bars == BarLines::kOutline && width > 0.0) {
      for (const BulgePath& outline : outlinesOf(path, width)) {
        out.polyline(look, outline, 0.0);
      }
      return;
    }
    out.polyline(look, path, m_dxf.bars == BarLines::kWidth ? width : 0.0);
  }

  // The bars of a series that are alike are one block, put where they lie.
  void addSeries(const Shape& shape, const EntityLook& look, EntityWriter& out) {
    const EntityLook inBlock{"0", kByLayer, {}};
    std::size_t number = 0;
    for (const AlikeBars& alike : alikeBarsOf(bulgePathsOf(shape.path))) {
      if (alike.places.size() < 2) {
        addBar({{{alike.places.front()}, {alike.places.front() + alike.way}}, false},
               shape.style.width, look, out);
        continue;
      }
      ++number;
      const std::string name = "SERIES_" + std::to_string(m_element->ordinal) +
                               (number == 1 ? "" : "_" + std::to_string(number));
      EntityWriter block = m_out.beginBlock(name);
      addBar({{{PlanePoint()}, {alike.way}}, false}, shape.style.width, inBlock, block);
      for (const PlanePoint place : alike.places) {
        out.insert(look, name, place);
      }
    }
  }

  // A mesh is one outline; everything else is line by line.
  static void addStrokes(const BulgePath& path, Layer layer, const EntityLook& look,
                         EntityWriter& out) {
    if (path.vertices.size() < 2) {
      return out.point(look, path.vertices.front().at);
    }
    if (layer == Layer::kMeshes && path.vertices.size() > 2) {
      return out.polyline(look, path, 0.0);
    }
    for (const BulgeWay& way : waysOf(path)) {
      out.way(look, way);
    }
  }

  const TransferFile& m_file;
  const DrawOptions& m_options;
  const DxfOptions& m_dxf;
  AngleUnit m_angles;
  ColorScheme m_colors;
  RepeatedBars m_repeated;
  DrawingSurvey m_survey;
  double m_scale;
  Sheet m_sheet;
  ShapeSink m_sink;
  ElementPainter m_painter;
  DxfFile m_out;
  FillCutter m_cutter;
  DxfLosses m_losses;
  SheetBox m_extents = SheetBox::none();
  const Element* m_element = nullptr;
  GroupText m_data;
  int m_color = kByLayer;
};

}  // namespace

DxfLosses writeDxf(const TransferFile& file, const DrawOptions& options, const DxfOptions& dxf,
                   Console& console, std::ostream& out) {
  Progress progress(console, "drawing " + file.name());
  Drawer drawer(file, options, dxf);
  drawer.draw(progress);
  drawer.write(out);
  return std::move(drawer.losses());
}

}  // namespace quorvan::tool
