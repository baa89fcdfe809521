#include <tools/schedule/list_tables.h>
#include <tools/schedule/list_writers.h>
#include <tools/text/number_text.h>
#include <tools/text/paragraph.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

void print(const ListTable& table, const ListWording& words, std::ostream& out) {
  Table text;
  for (const ListColumn& column : table.columns) {
    text.addColumn(std::string(column.title),
                   column.isNumeric ? Table::Align::kRight : Table::Align::kLeft);
  }
  for (const std::vector<Cell>& row : table.rows) {
    std::vector<std::string> cells;
    cells.reserve(row.size());
    for (const Cell& cell : row) {
      cells.push_back(cellText(cell, words.decimalMark));
    }
    text.addRow(std::move(cells));
  }
  text.print(out);
}

void printTitled(const ListTable& table, const ListWording& words, std::ostream& out) {
  if (!table.rows.empty()) {
    out << '\n' << table.title << (words.decimalMark == ',' ? "\u00a0:\n" : ":\n");
    print(table, words, out);
  }
}

}  // namespace

void printList(const BarList& list, const ListWriting& writing, std::ostream& out) {
  const ListWording& words = *writing.words;
  out << printable(listTitle(list, words)) << "\n\n";
  for (const std::string& paragraph : conventionsOf(list, words)) {
    printParagraph(out, paragraph);
  }
  out << '\n';
  if (list.rows.empty()) {
    out << words.noBars << '\n';
  } else {
    print(barTable(list, words, {Audience::kPeople}), words, out);
    out << '\n';
    print(sumTable(list, words), words, out);
    const Cell mass = numberCell(list.mass, 2);
    out << '\n' << filled(words.totalMass, {cellText(mass, words.decimalMark)}) << '\n';
  }
  if (list.drawings.size() > 1) {
    printTitled(drawingTable(list, words), words, out);
  }
  if (writing.explain) {
    printTitled(explanationTable(list, words), words, out);
  }
  printTitled(meshTable(list, words, Audience::kPeople), words, out);
  printTitled(leftOutTable(list, words, Audience::kPeople), words, out);
}

}  // namespace quorvan::tool
