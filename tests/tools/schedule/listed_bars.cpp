#include <tests/tools/schedule/listed_bars.h>

#include <sstream>

#include <tests/tools/drawn_elements.h>

namespace quorvan::test {

ListedBars::ListedBars(const std::string& elements, const tool::ListOptions& options)
    : m_file(documentOf(elements)), m_list(tool::makeBarList({&m_file.file()}, options)) {}

std::string ListedBars::text(const tool::ListWriting& writing) const {
  std::ostringstream out;
  tool::printList(m_list, writing, out);
  return out.str();
}

std::string ListedBars::csv(const tool::ListWriting& writing) const {
  std::ostringstream out;
  tool::writeListCsv(m_list, writing, out);
  return out.str();
}

std::string ListedBars::json(const tool::ListWriting& writing) const {
  std::ostringstream out;
  tool::writeListJson(m_list, writing, out);
  return out.str();
}

std::string barAlongX(int index, double length, double diameter, long mark) {
  BarParts parts;
  parts.points = {{}, {length, 0, 0}};
  parts.diameter = diameter;
  parts.mark = mark;
  parts.index = index;
  return barOf(parts);
}

tool::ListOptions inUnit(const tool::LengthUnit& unit) {
  tool::ListOptions options;
  options.unit = &unit;
  return options;
}

tool::ListOptions bySchedule(tool::Schedule schedule) {
  tool::ListOptions options;
  options.cutting = tool::usualRules(schedule);
  return options;
}

std::vector<std::string> titlesOf(const tool::ListTable& table) {
  std::vector<std::string> titles;
  for (const tool::ListColumn& column : table.columns) {
    titles.emplace_back(column.title);
    titles.back() += column.unit.empty() ? "" : " [" + std::string(column.unit) + ']';
  }
  return titles;
}

std::vector<std::string> cellsOf(const tool::ListTable& table, std::size_t row) {
  std::vector<std::string> texts;
  for (const tool::Cell& cell : table.rows[row]) {
    texts.push_back(cellText(cell, '.'));
  }
  return texts;
}

}  // namespace quorvan::test
