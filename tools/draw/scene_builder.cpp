#include <tools/draw/scene_builder.h>

#include <algorithm>
#include <cmath>

#include <tools/draw/labels/legend.h>
#include <tools/draw/labels/mark_labels.h>
#include <tools/draw/labels/title_block.h>
#include <tools/draw/shapes/element_shapes.h>
#include <tools/model/item_reader.h>

namespace quorvan::tool {

namespace {

// Draws element by element.
class Builder {
 public:
  Builder(const TransferFile& file, const DrawOptions& options)
      : m_file(file),
        m_options(options),
        m_sheet(extentsOf(file), options),
        m_sink({m_sheet, options.colors ? *options.colors : guessColorScheme(file),
                options.angles ? *options.angles : guessAngleUnit(file).unit, options.hidden}),
        m_reader(file),
        m_targets(file),
        m_index(file),
        m_labels(file, m_sheet, options.marks) {}

  SceneResult build(Progress& progress) {
    // The texts of the drawing have their places; labels make room for them.
    const std::uint64_t total = m_file.elements().size();
    for (const Element& element : m_file.elements()) {
      progress.report(element.place, 2 * total);
      if (isText(element)) {
        draw(element);
      }
    }
    for (const Element& element : m_file.elements()) {
      progress.report(total + element.place, 2 * total);
      if (element.schema != nullptr && !isText(element)) {
        draw(element);
      }
    }
    m_labels.draw(m_sink);
    drawLegend(m_options, m_sink);
    drawTitleBlock(m_file, m_options, m_sink);
    SceneResult result;
    result.scene.width = m_sheet.width();
    result.scene.height = m_sheet.height();
    result.scene.title = titleOf(m_file);
    result.leftOut = m_sink.leftOut();
    result.scene.shapes = m_sink.take();
    return result;
  }

 private:
  static bool isText(const Element& element) { return element.is(items::ElementClass::kText); }

  void draw(const Element& element) {
    const std::vector<ItemValue>& items = m_reader.read(element);
    if (const auto shape = barShapeOf(element)) {
      drawBarElement(element, toBar(*shape, items));
    } else if (element.is(items::ElementClass::kRepartition)) {
      drawSeries(element, toRepartition(items));
    } else {
      m_sink.begin(element.place);
      drawGraphic(element, items, m_sink);
    }
  }

  [[nodiscard]] bool isOff(bool isHidden) const {
    return isHidden && m_options.hidden == HiddenBars::kOff;
  }

  void drawBarElement(const Element& element, const Bar& bar) {
    if (isOff(bar.isHidden)) {
      return;
    }
    m_sink.begin(element.place, bar.isHidden);
    if (bar.isLink()) {
      drawLink(bar, m_sink);
    } else {
      drawBar(bar, m_sink);
    }
    m_labels.look(element, bar, m_sheet);
  }

  void drawSeries(const Element& element, const Repartition& series) {
    if (isOff(series.isHidden)) {
      return;
    }
    m_sink.begin(element.place, series.isHidden);
    const Element* const target = m_index.find(series.className, series.index);
    const auto shape = barShapeOf(series.className);
    if (target == nullptr || !shape) {
      return drawRepartition(series, nullptr, true, m_sink);
    }
    const Bar bar = toBar(*shape, m_targets.read(*target));
    drawRepartition(series, &bar, !isNamed(series, bar), m_sink);
  }

  // Whether a text of the drawing says what the series is.
  bool isNamed(const Repartition& series, const Bar& bar) {
    if (series.hasLine()) {
      return m_labels.lookAtSeries(bar, m_sheet.place(series.start), m_sheet.place(series.end));
    }
    return bar.line.size() > 1 && m_labels.lookAtSeries(bar, m_sheet.place(bar.line.front()),
                                                        m_sheet.place(bar.line.back()));
  }

  const TransferFile& m_file;
  const DrawOptions& m_options;
  Sheet m_sheet;
  ShapeSink m_sink;
  ItemReader m_reader;
  ItemReader m_targets;
  ElementIndex m_index;
  MarkLabels m_labels;
};

}  // namespace

SceneResult buildScene(const TransferFile& file, const DrawOptions& options, Console& console) {
  Progress progress(console, "drawing " + file.name());
  return Builder(file, options).build(progress);
}

}  // namespace quorvan::tool
