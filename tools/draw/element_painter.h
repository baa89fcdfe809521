// Draws the elements of a file, each as its class wants.
#pragma once

#include <tools/draw/labels/mark_labels.h>
#include <tools/draw/shapes/element_shapes.h>
#include <tools/model/item_reader.h>
#include <tools/model/repeated_bars.h>

namespace quorvan::tool {

class ElementPainter {
 public:
  /// Draws into the sink; tells the labels, unless null, of each bar that is drawn.
  ElementPainter(const TransferFile& file, ShapeSink& sink, MarkLabels* labels)
      : m_sink(sink), m_labels(labels), m_reader(file), m_repeated(file) {}

  /// Draws an element of a known class; a hidden bar only where they are wanted.
  void draw(const Element& element);

 private:
  void drawBarElement(const Element& element, const Bar& bar);
  void drawSeries(const Element& element, const Repartition& series);
  bool isNamed(const Repartition& series, const Bar& bar);
  [[nodiscard]] bool isOff(bool isHidden) const;

  ShapeSink& m_sink;
  MarkLabels* m_labels;
  ItemReader m_reader;
  RepeatedBars m_repeated;
};

}  // namespace quorvan::tool
