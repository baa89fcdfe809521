#include <tools/schedule/list_tables.h>
#include <tools/schedule/list_writers.h>

namespace quorvan::tool {

void writeListCsv(const BarList& list, const ListWriting& writing, std::ostream& out) {
  const ListTable table = barTable(list, *writing.words, {Audience::kPrograms, writing.explain});
  std::vector<std::string> fields;
  for (const ListColumn& column : table.columns) {
    fields.emplace_back(column.title);
    if (!column.unit.empty()) {
      fields.back() += " [" + std::string(column.unit) + ']';
    }
  }
  out << csvLine(fields, writing.csv);
  for (const std::vector<Cell>& row : table.rows) {
    fields.clear();
    for (const Cell& cell : row) {
      fields.push_back(cellText(cell, writing.csv.decimalMark));
    }
    out << csvLine(fields, writing.csv);
  }
}

}  // namespace quorvan::tool
