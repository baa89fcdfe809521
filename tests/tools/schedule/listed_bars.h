// The bar list of one drawing, for tests of what it holds and how it is written.
#pragma once

#include <string>

#include <tests/tools/loaded_file.h>
#include <tools/schedule/bar_list.h>
#include <tools/schedule/list_tables.h>
#include <tools/schedule/list_writers.h>

namespace quorvan::test {

class ListedBars {
 public:
  /// The list of a file with these elements.
  explicit ListedBars(const std::string& elements, const tool::ListOptions& options = {});

  [[nodiscard]] const tool::TransferFile& file() const { return m_file.file(); }
  [[nodiscard]] const tool::BarList& list() const { return m_list; }
  [[nodiscard]] const tool::BarRow& row(std::size_t place) const { return m_list.rows.at(place); }

  [[nodiscard]] std::string text(const tool::ListWriting& writing = {}) const;
  [[nodiscard]] std::string csv(const tool::ListWriting& writing = {}) const;
  [[nodiscard]] std::string json(const tool::ListWriting& writing = {}) const;

 private:
  LoadedFile m_file;
  tool::BarList m_list;
};

/// A straight bar along the x axis.
std::string barAlongX(int index, double length, double diameter = 10.0, long mark = 1);

/// Options with one thing changed.
tool::ListOptions inUnit(const tool::LengthUnit& unit);
tool::ListOptions bySchedule(tool::Schedule schedule);

/// The titles of the columns, each with its unit: "diameter [mm]".
std::vector<std::string> titlesOf(const tool::ListTable& table);

/// The cells of a row for people, in English.
std::vector<std::string> cellsOf(const tool::ListTable& table, std::size_t row);

}  // namespace quorvan::test
