#include <tools/draw/bar_list/list_sheets.h>

#include <algorithm>
#include <numeric>
#include <utility>

#include <tools/draw/bar_list/shape_sketch.h>
#include <tools/draw/scene/plain_shapes.h>
#include <tools/draw/scene/text_width.h>
#include <tools/schedule/list_tables.h>

namespace quorvan::tool {

namespace {

constexpr double kSheetWidth = 297.0;
constexpr double kSheetHeight = 210.0;
constexpr double kSheetMargin = 12.0;
constexpr double kListLettering = 1.5;
constexpr double kListTitleLettering = 3.0;
constexpr double kLineFeed = 3.2;
constexpr double kPadding = 0.8;
constexpr double kFoot = 8.0;
constexpr double kMostColumn = 46.0;
constexpr double kSketchShare = 0.68;  // of the size of a sketch in a row
constexpr Color kListInk{0, 0, 0};
constexpr Color kRule{150, 150, 150};

std::vector<std::string> wrapped(const std::string& text, double width) {
  std::vector<std::string> lines;
  std::string line;
  std::size_t at = 0;
  while (at <= text.size()) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    const std::string word = text.substr(at, end - at);
    at = end + 1;
    std::string longer = line;
    longer.append(line.empty() ? "" : " ").append(word);
    if (!line.empty() && textWidth(longer, kListLettering) > width) {
      lines.push_back(std::exchange(line, word));
    } else {
      line = std::move(longer);
    }
  }
  lines.push_back(line);
  return lines;
}

double widestWord(const std::string& text) {
  double widest = 0.0;
  for (const std::string& word : wrapped(text, 0.0)) {
    widest = std::max(widest, textWidth(word, kListLettering));
  }
  return widest;
}

// Takes room that is missing from columns that are wider than their widest word.
void fit(std::vector<double>& widths, const std::vector<double>& least, double room) {
  const double total = std::accumulate(widths.begin(), widths.end(), 0.0);
  const double needed = std::accumulate(least.begin(), least.end(), 0.0);
  if (total <= room) {
    return;
  }
  const double share = total > needed ? std::max(0.0, (room - needed) / (total - needed)) : 0.0;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    widths[i] = least[i] + (widths[i] - least[i]) * share;
  }
}

struct TableLayout {
  std::vector<double> widths;
  double sketch = 0.0;  // width of the column of sketches; 0 without one

  // Where the columns of texts end, and that of the sketches begins.
  [[nodiscard]] double right() const {
    return std::accumulate(widths.begin(), widths.end(), kSheetMargin);
  }
};

class Sheets {
 public:
  Sheets(const BarList& list, const ListWriting& writing)
      : m_list(list), m_writing(writing), m_words(*writing.words) {}

  std::vector<Scene> lay() {
    turnPage();
    addText({kSheetMargin, m_y}, listTitle(m_list, m_words), kListTitleLettering);
    m_y -= kListTitleLettering + kLineFeed;
    for (const std::string& paragraph : conventionsOf(m_list, m_words)) {
      for (const std::string& line : wrapped(paragraph, kSheetWidth - 2.0 * kSheetMargin)) {
        need(kLineFeed);
        addText({kSheetMargin, m_y}, line);
        m_y -= kLineFeed;
      }
    }
    m_y -= kLineFeed;
    if (m_list.rows.empty()) {
      addText({kSheetMargin, m_y}, std::string(m_words.noBars));
      m_y -= kLineFeed;
    } else {
      addTable(barTable(m_list, m_words, {Audience::kPeople}), true);
      addTitled(sumTable(m_list, m_words));
      const std::string mass = cellText(numberCell(m_list.mass, 2), m_words.decimalMark);
      need(kLineFeed);
      addText({kSheetMargin, m_y}, filled(m_words.totalMass, {mass}));
      m_y -= 2.0 * kLineFeed;
    }
    addRest();
    number();
    return std::move(m_pages);
  }

 private:
  void addRest() {
    if (m_list.drawings.size() > 1) {
      addTitled(drawingTable(m_list, m_words));
    }
    if (m_writing.explain) {
      addTitled(explanationTable(m_list, m_words));
    }
    addTitled(meshTable(m_list, m_words, Audience::kPeople));
    addTitled(leftOutTable(m_list, m_words, Audience::kPeople));
  }

  void turnPage() {
    Scene page;
    page.width = kSheetWidth;
    page.height = kSheetHeight;
    page.title = listTitle(m_list, m_words);
    m_pages.push_back(std::move(page));
    m_y = kSheetHeight - kSheetMargin - kListTitleLettering;
  }

  // Whether it had to go on to another page.
  bool need(double height) {
    if (m_y - height >= kSheetMargin + kFoot) {
      return false;
    }
    turnPage();
    return true;
  }

  void addTitled(const ListTable& table) {
    if (table.rows.empty()) {
      return;
    }
    need(5.0 * kLineFeed);
    m_y -= kLineFeed;
    addText({kSheetMargin, m_y}, std::string(table.title), kListLettering * 1.2);
    m_y -= 1.5 * kLineFeed;
    addTable(table, false);
  }

  [[nodiscard]] TableLayout layout(const ListTable& table, bool hasSketches) const {
    TableLayout result;
    result.sketch = hasSketches ? kSketchWidth * kSketchShare : 0.0;
    std::vector<double> least;
    for (const ListColumn& column : table.columns) {
      const std::string head = headOf(column);
      result.widths.push_back(textWidth(head, kListLettering));
      least.push_back(widestWord(head));
    }
    for (const std::vector<Cell>& row : table.rows) {
      for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string text = cellText(row[i], m_words.decimalMark);
        const double width = textWidth(text, kListLettering);
        result.widths[i] = std::max(result.widths[i], width);
        least[i] = std::max(least[i], table.columns[i].isNumeric ? width : widestWord(text));
      }
    }
    for (std::size_t i = 0; i < least.size(); ++i) {
      least[i] += 2.0 * kPadding;
      result.widths[i] =
          std::max(least[i], std::min(result.widths[i] + 2.0 * kPadding, kMostColumn));
    }
    fit(result.widths, least, kSheetWidth - 2.0 * kSheetMargin - result.sketch);
    return result;
  }

  static std::string headOf(const ListColumn& column) {
    std::string text(column.title);
    return column.unit.empty() ? text : text + " [" + std::string(column.unit) + ']';
  }

  using Lines = std::vector<std::vector<std::string>>;  // of each cell

  static std::size_t heightOf(const Lines& cells) {
    std::size_t most = 1;
    for (const auto& lines : cells) {
      most = std::max(most, lines.size());
    }
    return most;
  }

  void addTable(const ListTable& table, bool hasSketches) {
    const TableLayout columns = layout(table, hasSketches);
    Lines head;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      head.push_back(wrapped(headOf(table.columns[i]), columns.widths[i] - 2.0 * kPadding));
    }
    addRow(table, columns, head, 0.0);
    for (std::size_t r = 0; r < table.rows.size(); ++r) {
      Lines cells;
      const std::vector<Cell> row = table.rows[r];
      for (std::size_t i = 0; i < table.columns.size(); ++i) {
        cells.push_back(
            wrapped(cellText(row[i], m_words.decimalMark), columns.widths[i] - 2.0 * kPadding));
      }
      const double sketch = hasSketches ? kSketchHeight * kSketchShare : 0.0;
      const double height = std::max(sketch, static_cast<double>(heightOf(cells)) * kLineFeed);
      if (need(height + 2.0 * kPadding)) {
        addRow(table, columns, head, 0.0);
      }
      const double top = m_y;
      addRow(table, columns, cells, sketch);
      if (hasSketches) {
        const double left = columns.right();
        addSketch(m_list.rows[r], {left, top + kListLettering + kPadding - sketch - kPadding});
      }
    }
    m_y -= kLineFeed;
  }

  void addRow(const ListTable& table, const TableLayout& columns, const Lines& cells,
              double least) {
    double x = kSheetMargin;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      double y = m_y;
      for (const std::string& line : cells[i]) {
        const bool isRight = table.columns[i].isNumeric;
        addText({isRight ? x + columns.widths[i] - kPadding : x + kPadding, y}, line,
                kListLettering, isRight ? AlignX::kRight : AlignX::kLeft);
        y -= kLineFeed;
      }
      x += columns.widths[i];
    }
    m_y -= std::max(least, static_cast<double>(heightOf(cells)) * kLineFeed) + kPadding;
    addRule(m_y + kListLettering + kPadding, x + columns.sketch);
    m_y -= kPadding;
  }

  void addSketch(const BarRow& row, PlanePoint at) {
    for (const Shape& shape : sketchOf(row, m_list, m_words.decimalMark).shapes) {
      m_pages.back().shapes.push_back(placed(shape, kSketchShare, at));
    }
  }

  void addRule(double y, double right) {
    constexpr double kRuleWidth = 0.15;
    Path path;
    path.moveTo({kSheetMargin, y});
    path.lineTo({right, y});
    m_pages.back().shapes.push_back(lineShape(Layer::kLines, kRule, kRuleWidth, std::move(path)));
  }

  void addText(PlanePoint at, std::string text, double height = kListLettering,
               AlignX align = AlignX::kLeft) {
    if (!text.empty()) {
      m_pages.back().shapes.push_back(
          textShape({std::move(text), at, height, 0.0, align, AlignY::kBase}, kListInk));
    }
  }

  void number() {
    const std::string count = std::to_string(m_pages.size());
    std::vector<Scene> pages = std::move(m_pages);
    m_pages.clear();
    for (Scene& page : pages) {
      m_pages.push_back(std::move(page));
      addText({kSheetWidth - kSheetMargin, kSheetMargin},
              filled(m_words.page, {std::to_string(m_pages.size()), count}), kListLettering,
              AlignX::kRight);
    }
  }

  const BarList& m_list;
  const ListWriting& m_writing;
  const ListWording& m_words;
  std::vector<Scene> m_pages;
  double m_y = 0.0;  // the base line of the next text
};

}  // namespace

std::vector<Scene> listSheets(const BarList& list, const ListWriting& writing) {
  return Sheets(list, writing).lay();
}

}  // namespace quorvan::tool
