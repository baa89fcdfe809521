#include <tools/draw/element_painter.h>

namespace quorvan::tool {

void ElementPainter::draw(const Element& element) {
  if (element.schema == nullptr) {
    return;
  }
  const std::vector<ItemValue>& items = m_reader.read(element);
  m_items = &items;
  m_bar = nullptr;
  if (const auto shape = barShapeOf(element)) {
    m_bar = &m_own.emplace(toBar(*shape, items));
    drawBarElement(element, *m_bar);
  } else if (element.is(items::ElementClass::kRepartition)) {
    drawSeries(element, toRepartition(items));
  } else {
    m_sink.begin(element.place);
    drawGraphic(element, items, m_sink);
  }
}

bool ElementPainter::isOff(bool isHidden) const {
  return isHidden && m_sink.context().hidden == HiddenBars::kOff;
}

void ElementPainter::drawBarElement(const Element& element, const Bar& bar) {
  if (isOff(bar.isHidden)) {
    return;
  }
  m_sink.begin(element.place, bar.isHidden);
  if (bar.isLink()) {
    drawLink(bar, m_sink);
  } else {
    drawBar(bar, m_sink);
  }
  if (m_labels != nullptr) {
    m_labels->look(element, bar, m_sink.sheet());
  }
}

void ElementPainter::drawSeries(const Element& element, const Repartition& series) {
  if (isOff(series.isHidden)) {
    return;
  }
  m_sink.begin(element.place, series.isHidden);
  m_bar = m_repeated.find(series);
  const bool isLabelled = m_labels != nullptr && (m_bar == nullptr || !isNamed(series, *m_bar));
  const SheetBox labelled = drawRepartition(series, m_bar, isLabelled, m_sink);
  if (m_bar != nullptr && !labelled.isEmpty()) {
    m_labels->noteLabel(*m_bar, series.number(), labelled);
  }
}

// Whether a text of the drawing says what the series is.
bool ElementPainter::isNamed(const Repartition& series, const Bar& bar) {
  const Sheet& sheet = m_sink.sheet();
  if (series.hasLine()) {
    return m_labels->lookAtSeries(bar, sheet.place(series.start), sheet.place(series.end));
  }
  return bar.line.size() > 1 &&
         m_labels->lookAtSeries(bar, sheet.place(bar.line.front()), sheet.place(bar.line.back()));
}

}  // namespace quorvan::tool
