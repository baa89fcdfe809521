// The concrete of a drawing, as far as its formwork tells.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <tools/draw/scene/plane_point.h>
#include <tools/model/item_value.h>
#include <tools/model/length_unit.h>

namespace quorvan::tool {

/// A straight piece of an outline, in mm.
struct FormworkLine {
  PlanePoint from;
  PlanePoint to;
  std::uint32_t outline = 0;
};

struct PlaneBox {
  PlanePoint least;
  PlanePoint most;

  void include(PlanePoint point) noexcept;
  [[nodiscard]] bool isAround(PlanePoint point) const noexcept;
};

/// Formwork in the plane of x and y; arcs are cut into chords that miss them by a twentieth of a
/// millimetre at the most. Segments that meet at their ends within a tenth of a millimetre are one
/// outline, whichever elements file them. It is closed where each of its ends is one of two;
/// outlines that are not, such as those that run to a break line, enclose the box around them all.
class Formwork {
 public:
  /// `effort` bounds what all questions together may cost, in lines that are looked at.
  Formwork(const std::vector<Segment>& segments, const LengthUnit& unit, std::size_t effort);

  [[nodiscard]] bool isEmpty() const noexcept { return m_lines.empty(); }
  /// Whether the questions have cost more than they may; answers are then of no use.
  [[nodiscard]] bool isExhausted() const noexcept { return m_effort == 0; }

  /// Whether the point lies within an outline.
  [[nodiscard]] bool isAround(PlanePoint point) const;

  /// Calls `look` once for each line that may reach into the box.
  template <class Look>
  void visit(const PlaneBox& box, const Look& look) const;

 private:
  static constexpr int kMostCells = 64;  // a side

  void joinOutlines(const std::vector<Segment>& segments);
  void buildGrid();
  void enter(std::uint32_t line);
  [[nodiscard]] int cellOf(double value, double least) const noexcept;
  [[nodiscard]] std::size_t placeOf(int row, int column) const noexcept {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_cells) +
           static_cast<std::size_t>(column);
  }
  void spend(std::size_t cost) const noexcept { m_effort -= cost < m_effort ? cost : m_effort; }

  LengthUnit m_unit;
  std::vector<FormworkLine> m_lines;
  std::vector<bool> m_isClosed;  // by outline
  std::vector<PlaneBox> m_open;  // one, where there are open outlines
  PlaneBox m_box;
  double m_cell = 1.0;
  int m_cells = 1;
  std::vector<std::vector<std::uint32_t>> m_grid;
  mutable std::vector<std::uint32_t> m_visits;  // by line: the question that it was last in
  mutable std::uint32_t m_question = 0;
  mutable std::vector<std::uint32_t> m_crossings;  // by outline: of the ray of a question
  mutable std::size_t m_effort;
};

template <class Look>
void Formwork::visit(const PlaneBox& box, const Look& look) const {
  if (m_lines.empty() || isExhausted()) {
    return;
  }
  ++m_question;
  const int columns = cellOf(box.most.x, m_box.least.x);
  const int rows = cellOf(box.most.y, m_box.least.y);
  for (int row = cellOf(box.least.y, m_box.least.y); row <= rows; ++row) {
    for (int column = cellOf(box.least.x, m_box.least.x); column <= columns; ++column) {
      const auto& cell = m_grid[placeOf(row, column)];
      spend(1 + cell.size());
      for (const std::uint32_t line : cell) {
        if (m_visits[line] != m_question) {
          m_visits[line] = m_question;
          look(m_lines[line]);
        }
      }
    }
  }
}

}  // namespace quorvan::tool
