// Bar marks: which bars get one, and where it finds room.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <unordered_map>
#include <vector>

#include <tools/draw/labels/mark_texts.h>
#include <tools/draw/scene/draw_options.h>
#include <tools/draw/shapes/shape_sink.h>
#include <tools/files/transfer_file.h>
#include <tools/model/bar.h>
#include <tools/schedule/bar_list.h>

namespace quorvan::tool {

/// How many bars the list has of each mark.
using BarNumbers = std::unordered_map<std::int64_t, std::uint64_t>;
BarNumbers numbersByMark(const BarList& list);

class MarkLabels {
 public:
  /// By what is shown of the drawing: texts and series that are not say nothing. The labels say the
  /// numbers, which outlive them.
  MarkLabels(const TransferFile& file, const BarNumbers& numbers, const Sheet& sheet,
             const DrawOptions& options);

  /// Looks at a bar that is drawn.
  void look(const Element& element, const Bar& bar, const Sheet& sheet);

  /// Looks at a series of such bars that is drawn from `from` to `to`; gives whether a text names
  /// it.
  bool lookAtSeries(const Bar& bar, PlanePoint from, PlanePoint to);

  /// Takes note that a label says so many bars of the mark, a series that is drawn there.
  void noteLabel(std::int64_t mark, std::uint64_t number, const SheetBox& bars);

  /// Draws the marks of the bars looked at. The labels of series are enough where they say all bars
  /// of the mark and stand at the bar itself; one that is drawn elsewhere, in another view, has its
  /// own mark there.
  void draw(ShapeSink& sink);

 private:
  struct Labelled {
    std::uint32_t element = kNoElement;
    std::int64_t mark = 0;
    double diameter = 0.0;
    bool isSmooth = false;
    bool isHidden = false;
    double length = 0.0;
    double size = -1.0;  // of the bar on the sheet
    PlanePoint from;
    PlanePoint to;
  };

  // What labels of series say of a mark.
  struct Said {
    std::uint64_t number = 0;
    std::vector<SheetBox> places;
  };

  [[nodiscard]] bool isSaidBySeries(const Labelled& bar) const;
  void drawOne(const Labelled& bar, ShapeSink& sink);

  Marks m_marks;
  bool m_hasSeries;
  std::optional<MarkTexts> m_texts;  // that the drawing has
  const BarNumbers& m_numbers;
  std::unordered_map<std::int64_t, Said> m_said;
  std::set<std::int64_t> m_named;  // by these texts
  std::vector<Labelled> m_bars;
  std::unordered_map<std::int64_t, std::size_t> m_places;  // of the marks among m_bars
};

}  // namespace quorvan::tool
