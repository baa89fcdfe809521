// A bar list as tables, whatever they are written as.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
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

struct ListTable {
  std::string_view title;
  std::vector<ListColumn> columns;
  std::vector<std::vector<Cell>> rows;
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
