#include <xlsxwriter.h>

#include <map>
#include <string>
#include <utility>

#include <tools/console/console.h>
#include <tools/console/terminal.h>
#include <tools/schedule/list_tables.h>
#include <tools/schedule/list_writers.h>
#include <tools/text/text_beginning.h>

namespace quorvan::tool {

namespace {

constexpr std::size_t kMostText = 32000;  // a cell takes a little more

std::string fitting(std::string text) {
  if (text.size() <= kMostText) {
    return text;
  }
  return std::string(textBeginning(text, kMostText)) + "...";
}

class Book {
 public:
  explicit Book(const std::filesystem::path& path)
      : m_path(toUtf8(path)), m_book(workbook_new(m_path.c_str())) {
    if (m_book == nullptr) {
      throw Failure(m_path + ": cannot be written");
    }
    // The same list gives the same bytes.
    lxw_doc_properties properties = {};
    properties.created = 946684800;
    workbook_set_properties(m_book, &properties);
    m_bold = workbook_add_format(m_book);
    format_set_bold(m_bold);
  }
  Book(const Book&) = delete;
  Book& operator=(const Book&) = delete;
  ~Book() {
    if (m_book != nullptr) {
      workbook_close(m_book);
    }
  }

  void add(const ListTable& table) {
    lxw_worksheet* const sheet = addSheet(table.title);
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const ListColumn& column = table.columns[i];
      std::string title(column.title);
      title += column.unit.empty() ? "" : " [" + std::string(column.unit) + ']';
      write(sheet, 0, i, textCell(std::move(title)), m_bold);
    }
    worksheet_freeze_panes(sheet, 1, 0);
    for (std::size_t r = 0; r < table.rows.size(); ++r) {
      const std::vector<Cell> row = table.rows[r];
      for (std::size_t i = 0; i < row.size(); ++i) {
        write(sheet, r + 1, i, row[i], nullptr);
      }
    }
  }

  void addTexts(std::string_view title, const std::vector<std::string>& texts) {
    lxw_worksheet* const sheet = addSheet(title);
    for (std::size_t r = 0; r < texts.size(); ++r) {
      write(sheet, r, 0, textCell(texts[r]), nullptr);
    }
  }

  void save() {
    const lxw_error error = workbook_close(std::exchange(m_book, nullptr));
    if (error != LXW_NO_ERROR) {
      throw Failure(m_path + ": cannot be written: " + lxw_strerror(error));
    }
  }

 private:
  lxw_worksheet* addSheet(std::string_view title) {
    const std::string name(title);
    lxw_worksheet* const sheet = workbook_add_worksheet(m_book, name.c_str());
    if (sheet == nullptr) {
      throw Failure(m_path + ": there cannot be a sheet \"" + name + '"');
    }
    return sheet;
  }

  void write(lxw_worksheet* sheet, std::size_t row, std::size_t column, const Cell& cell,
             lxw_format* format) {
    const auto r = static_cast<lxw_row_t>(row);
    const auto c = static_cast<lxw_col_t>(column);
    lxw_error error = LXW_NO_ERROR;
    if (cell.isNumber()) {
      error = worksheet_write_number(sheet, r, c, cell.number, formatOf(cell.decimals));
    } else if (!cell.text.empty()) {
      error = worksheet_write_string(sheet, r, c, fitting(cell.text).c_str(), format);
    }
    if (error != LXW_NO_ERROR) {
      throw Failure(m_path + ": cannot be written: " + lxw_strerror(error));
    }
  }

  lxw_format* formatOf(int decimals) {
    lxw_format*& format = m_formats[decimals];
    if (format == nullptr) {
      format = workbook_add_format(m_book);
      const std::string digits =
          decimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(decimals), '0');
      format_set_num_format(format, digits.c_str());
    }
    return format;
  }

  std::string m_path;
  lxw_workbook* m_book;
  lxw_format* m_bold = nullptr;
  std::map<int, lxw_format*> m_formats;
};

}  // namespace

void writeListWorkbook(const BarList& list, const ListWriting& writing,
                       const std::filesystem::path& path) {
  const ListWording& words = *writing.words;
  Book book(path);
  book.add(barTable(list, words, {Audience::kPrograms, writing.explain}));
  book.add(sumTable(list, words));
  book.add(drawingTable(list, words));
  book.add(meshTable(list, words, Audience::kPrograms));
  book.add(leftOutTable(list, words, Audience::kPrograms));
  std::vector<std::string> head = conventionsOf(list, words);
  head.insert(head.begin(), listTitle(list, words));
  book.addTexts(words.titles.conventions, head);
  book.save();
}

}  // namespace quorvan::tool
