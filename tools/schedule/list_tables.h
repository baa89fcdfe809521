// A bar list as tables, whatever they are written as.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <tools/schedule/bar_list.h>
#include <tools/schedule/list_wording.h>

namespace quorvan::tool {

inline constexpr int kMassDecimals = 2;
inline constexpr int kMetreDecimals = 2;

/// A text, or a number with so many decimals and what stands around it.
struct Cell {
  std::string text;
  double number = 0.0;
  int decimals = -1;  // below 0 for a text
  std::string before = {};
  std::string after = {};

  [[nodiscard]] bool isNumber() const noexcept { return decimals >= 0; }
};

Cell textCell(std::string text);
Cell numberCell(double number, int decimals);
Cell wholeCell(std::uint64_t number);

/// The cell for people, with the decimal mark of the language.
std::string cellText(const Cell& cell, char decimalMark);

struct ListColumn {
  std::string_view title;
  std::string_view unit;  // empty without one
  bool isNumeric = false;
};

/// Rows that are made when they are asked for: a list may have a hundred thousand of them.
class ListRows {
 public:
  using CellOf = std::function<Cell(std::size_t row)>;

  class Iterator {
   public:
    Iterator(const ListRows& rows, std::size_t at) : m_rows(rows), m_at(at) {}
    std::vector<Cell> operator*() const { return m_rows[m_at]; }
    Iterator& operator++() {
      ++m_at;
      return *this;
    }
    friend bool operator==(const Iterator& a, const Iterator& b) { return a.m_at == b.m_at; }

   private:
    const ListRows& m_rows;
    std::size_t m_at;
  };

  explicit ListRows(std::size_t size = 0) : m_size(size) {}

  void addColumn(CellOf cellOf) { m_columns.push_back(std::move(cellOf)); }
  /// What the columns refer to lives as long as this.
  void keep(std::shared_ptr<const void> owner) { m_owner = std::move(owner); }

  [[nodiscard]] std::size_t size() const noexcept { return m_size; }
  [[nodiscard]] bool empty() const noexcept { return m_size == 0; }
  std::vector<Cell> operator[](std::size_t row) const;
  [[nodiscard]] Iterator begin() const { return {*this, 0}; }
  [[nodiscard]] Iterator end() const { return {*this, m_size}; }

 private:
  std::size_t m_size;
  std::vector<CellOf> m_columns;
  std::shared_ptr<const void> m_owner;
};

/// Refers to its list.
struct ListTable {
  std::string_view title;
  std::vector<ListColumn> columns;
  ListRows rows;
};

/// For people: columns that say nothing are left out, lengths from and to stand together. For
/// programs: the same columns whatever the list holds, numbers alone in theirs.
enum class Audience : std::uint8_t { kPeople, kPrograms };

struct TableOptions {
  Audience audience = Audience::kPeople;
  bool explain = false;
};

ListTable barTable(const BarList& list, const ListWording& words, const TableOptions& options);
ListTable explanationTable(const BarList& list, const ListWording& words);
ListTable sumTable(const BarList& list, const ListWording& words);
ListTable drawingTable(const BarList& list, const ListWording& words);
ListTable meshTable(const BarList& list, const ListWording& words, Audience audience);
/// Elements of one class that are left out for one reason stand in one row.
ListTable leftOutTable(const BarList& list, const ListWording& words, Audience audience);

/// What stands on top: "Bar list of a.xml, drawing B1", and the conventions, a paragraph each.
std::string listTitle(const BarList& list, const ListWording& words);
std::vector<std::string> conventionsOf(const BarList& list, const ListWording& words);

/// The name of a drawing in the list: that in its record, or that of its file.
const std::string& nameOf(const ListedDrawing& drawing) noexcept;

}  // namespace quorvan::tool
