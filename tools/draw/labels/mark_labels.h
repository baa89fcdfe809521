// Bar marks: which bars get one, and where it finds room.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include <tools/draw/labels/bars_by_mark.h>
#include <tools/draw/labels/mark_texts.h>
#include <tools/draw/scene/draw_options.h>
#include <tools/draw/shapes/shape_sink.h>
#include <tools/files/transfer_file.h>
#include <tools/model/bar.h>

namespace quorvan::tool {

class MarkLabels {
 public:
  /// By what is shown of the drawing: texts and series that are not say nothing. The labels say
  /// what the list says of the bars, which outlive them.
  MarkLabels(const TransferFile& file, const BarsByMark& bars, const Sheet& sheet,
             const DrawOptions& options);

  /// Looks at a bar that is drawn.
  void look(const Element& element, const Bar& bar, const Sheet& sheet);

  /// Looks at a series of such bars that is drawn from `from` to `to`; gives whether a text names
  /// it.
  bool lookAtSeries(const Bar& bar, PlanePoint from, PlanePoint to);

  /// Takes note that a label says so many bars like this one, a series that is drawn there.
  void noteLabel(const Bar& bar, std::uint64_t number, const SheetBox& bars);

  /// Draws the marks of the bars looked at. The labels of series are enough where they say all bars
  /// of the mark and its steel and stand at the bar itself; one that is drawn elsewhere, in another
  /// view, has its own mark there.
  void draw(ShapeSink& sink);

 private:
  // A mark, and which of its bars; null for those that are not in the list.
  using Kind = std::pair<std::int64_t, const MarkedBars*>;

  struct Labelled {
    std::uint32_t element = kNoElement;
    Kind kind;
    double diameter = 0.0;
    bool isSmooth = false;
    bool isHidden = false;
    double length = 0.0;
    double size = -1.0;  // of the bar on the sheet
    PlanePoint from;
    PlanePoint to;
  };

  // What labels of series say of bars.
  struct Said {
    std::uint64_t number = 0;
    std::vector<SheetBox> places;
  };

  [[nodiscard]] Kind kindOf(const Bar& bar) const;
  [[nodiscard]] bool isSaidBySeries(const Labelled& bar) const;
  void drawOne(const Labelled& bar, ShapeSink& sink);

  Marks m_marks;
  bool m_hasSeries;
  std::optional<MarkTexts> m_texts;  // that the drawing has
  const BarsByMark& m_listed;
  double m_unit;  // of the drawing, in mm
  std::map<Kind, Said> m_said;
  std::set<std::int64_t> m_named;  // by these texts
  std::vector<Labelled> m_bars;
  std::map<Kind, std::size_t> m_places;  // among m_bars
};

}  // namespace quorvan::tool
