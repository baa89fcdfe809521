// Draws the elements of a file, each as its class wants.
#pragma once

#include <optional>
#include <vector>

#include <tools/draw/labels/mark_labels.h>
#include <tools/draw/shapes/element_shapes.h>
#include <tools/model/item_reader.h>
#include <tools/model/repeated_bars.h>

namespace quorvan::tool {

class ElementPainter {
 public:
  /// Draws into the sink; tells the labels, unless null, of each bar that is drawn. What is given
  /// lives as long as the painter.
  ElementPainter(const TransferFile& file, RepeatedBars& repeated, ShapeSink& sink,
                 MarkLabels* labels)
      : m_sink(sink), m_labels(labels), m_reader(file), m_repeated(repeated) {}

  /// Draws an element of a known class; a hidden bar only where they are wanted.
  void draw(const Element& element);

  /// What was drawn last: its items, and the bar that it is or, a series, repeats; null where it is
  /// neither or the bar is not there. Valid until the next is drawn.
  [[nodiscard]] const std::vector<ItemValue>& items() const noexcept { return *m_items; }
  [[nodiscard]] const Bar* bar() const noexcept { return m_bar; }

 private:
  void drawBarElement(const Element& element, const Bar& bar);
  void drawSeries(const Element& element, const Repartition& series);
  bool isNamed(const Repartition& series, const Bar& bar);
  [[nodiscard]] bool isOff(bool isHidden) const;

  ShapeSink& m_sink;
  MarkLabels* m_labels;
  ItemReader m_reader;
  RepeatedBars& m_repeated;
  const std::vector<ItemValue>* m_items = nullptr;
  std::optional<Bar> m_own;
  const Bar* m_bar = nullptr;
};

}  // namespace quorvan::tool
