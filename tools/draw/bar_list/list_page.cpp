#include <tools/draw/bar_list/list_page.h>

#include <tools/draw/bar_list/shape_sketch.h>
#include <tools/draw/writers/svg_writer.h>
#include <tools/schedule/list_tables.h>

namespace quorvan::tool {

namespace {

constexpr std::string_view kListStyle =
    "body{font:14px Arial,Helvetica,\"Liberation Sans\",sans-serif;margin:2em;color:#000}\n"
    "h1{font-size:1.4em}h2{font-size:1.1em;margin-top:1.6em}\n"
    "p{max-width:60em;margin:.3em 0}\n"
    "table{border-collapse:collapse;margin:.6em 0}\n"
    "th,td{border:1px solid #999;padding:.25em .5em;text-align:left;vertical-align:middle}\n"
    "th{background:#eee}td.n,th.n{text-align:right;white-space:nowrap}\n"
    "td.shape{padding:0}td.shape svg{display:block;width:70mm;height:34mm}\n"
    "@media print{body{margin:0;font-size:10px}tr{break-inside:avoid}thead{display:table-header-"
    "group}}\n";

class ListPage {
 public:
  ListPage(const BarList& list, const ListWriting& writing, std::ostream& out)
      : m_list(list), m_writing(writing), m_words(*writing.words), m_out(out) {}

  void write() {
    const std::string title = xmlText(listTitle(m_list, m_words));
    m_out << "<!DOCTYPE html>\n<html lang=\"" << m_words.language
          << "\">\n<head>\n<meta charset=\"utf-8\">\n<title>" << title << "</title>\n<style>\n"
          << kListStyle << "</style>\n</head>\n<body>\n<h1>" << title << "</h1>\n";
    for (const std::string& paragraph : conventionsOf(m_list, m_words)) {
      m_out << "<p>" << xmlText(paragraph) << "</p>\n";
    }
    if (m_list.rows.empty()) {
      m_out << "<p>" << m_words.noBars << "</p>\n";
    } else {
      writeBars();
      writeTitled(sumTable(m_list, m_words));
      const std::string mass = cellText(numberCell(m_list.mass, 2), m_words.decimalMark);
      m_out << "<p><strong>" << filled(m_words.totalMass, {mass}) << "</strong></p>\n";
    }
    if (m_list.drawings.size() > 1) {
      writeTitled(drawingTable(m_list, m_words));
    }
    if (m_writing.explain) {
      writeTitled(explanationTable(m_list, m_words));
    }
    writeTitled(meshTable(m_list, m_words, Audience::kPeople));
    writeTitled(leftOutTable(m_list, m_words, Audience::kPeople));
    m_out << "</body>\n</html>\n";
  }

 private:
  void writeHead(const ListTable& table, std::string_view last) {
    m_out << "<table>\n<thead><tr>";
    for (const ListColumn& column : table.columns) {
      m_out << (column.isNumeric ? "<th class=\"n\">" : "<th>") << column.title;
      if (!column.unit.empty()) {
        m_out << " [" << column.unit << ']';
      }
      m_out << "</th>";
    }
    if (!last.empty()) {
      m_out << "<th>" << last << "</th>";
    }
    m_out << "</tr></thead>\n<tbody>\n";
  }

  void writeCells(const ListTable& table, const std::vector<Cell>& row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      m_out << (table.columns[i].isNumeric ? "<td class=\"n\">" : "<td>")
            << xmlText(cellText(row[i], m_words.decimalMark)) << "</td>";
    }
  }

  void writeBars() {
    const ListTable table = barTable(m_list, m_words, {Audience::kPeople});
    writeHead(table, m_words.titles.sketches);
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
      m_out << "<tr>";
      writeCells(table, table.rows[i]);
      m_out << "<td class=\"shape\">";
      writeSvg(sketchOf(m_list.rows[i], m_list, m_words.decimalMark), {true}, m_out);
      m_out << "</td></tr>\n";
    }
    m_out << "</tbody>\n</table>\n";
  }

  void writeTitled(const ListTable& table) {
    if (table.rows.empty()) {
      return;
    }
    m_out << "<h2>" << table.title << "</h2>\n";
    writeHead(table, "");
    for (const std::vector<Cell>& row : table.rows) {
      m_out << "<tr>";
      writeCells(table, row);
      m_out << "</tr>\n";
    }
    m_out << "</tbody>\n</table>\n";
  }

  const BarList& m_list;
  const ListWriting& m_writing;
  const ListWording& m_words;
  std::ostream& m_out;
};

}  // namespace

void writeListPage(const BarList& list, const ListWriting& writing, std::ostream& out) {
  ListPage(list, writing, out).write();
}

}  // namespace quorvan::tool
