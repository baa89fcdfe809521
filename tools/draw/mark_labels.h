// Bar marks: which bars get one, and where it finds room.
#pragma once

#include <cstdint>
#include <set>
#include <unordered_map>
#include <vector>

#include <tools/draw/draw_options.h>
#include <tools/draw/shape_sink.h>
#include <tools/model/bar.h>
#include <tools/model/transfer_file.h>

namespace quorvan::tool {

/// Which parts of the sheet are taken by marks already.
class Occupancy {
 public:
  /// Takes the box if none that was taken before overlaps it.
  bool take(PlanePoint least, PlanePoint most);

 private:
  struct Box {
    PlanePoint least;
    PlanePoint most;
  };

  std::unordered_map<std::int64_t, std::vector<Box>> m_cells;
};

class MarkLabels {
 public:
  MarkLabels(const TransferFile& file, Marks marks);

  /// Looks at a bar that is drawn.
  void look(const Element& element, const Bar& bar, const Sheet& sheet);

  /// Draws the marks of the bars looked at.
  void draw(ShapeSink& sink);

 private:
  struct Labelled {
    std::uint32_t element;
    std::int64_t mark;
    double diameter;
    bool isHidden;
    double size;  // of the bar on the sheet
    PlanePoint from;
    PlanePoint to;
  };

  void drawOne(const Labelled& bar, ShapeSink& sink);

  Marks m_marks;
  std::set<std::string> m_texts;  // that the drawing has
  std::vector<Labelled> m_bars;
  std::unordered_map<std::int64_t, std::size_t> m_places;  // of the marks among m_bars
  Occupancy m_taken;
};

}  // namespace quorvan::tool
