// A table of texts in columns.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace quorvan::tool {

/// The text as a terminal can show it: control characters, which could steer the terminal, and
/// marks that turn the direction of text are written as \n, \t or \u009b.
std::string printable(std::string_view text);

/// Characters of UTF-8 text.
std::size_t lengthOf(std::string_view text) noexcept;

class Table {
 public:
  enum class Align { kLeft, kRight };

  void addColumn(std::string title, Align align = Align::kLeft);
  /// One text a column. They are made printable.
  void addRow(std::vector<std::string> cells);
  [[nodiscard]] bool empty() const noexcept { return m_rows.empty(); }

  /// Titles, then the rows; a cell that is much longer than others moves what stands behind it in
  /// its row, and no other row. Columns two blanks apart, `indent` blanks before the first, no
  /// blanks at the ends of lines.
  void print(std::ostream& out, std::size_t indent = 0) const;

 private:
  struct Column {
    std::string title;
    Align align;
    std::size_t width;
  };

  void printRow(std::ostream& out, std::size_t indent, const std::vector<std::string>& cells) const;

  std::vector<Column> m_columns;
  std::vector<std::vector<std::string>> m_rows;
};

}  // namespace quorvan::tool
