#include <tools/text/table.h>

#include <algorithm>
#include <utility>

#include <quorvan/text/utf8.h>

namespace quorvan::tool {

namespace {

// No row is longer for the sake of a cell that is longer than this in another.
constexpr std::size_t kWidestPadding = 60;
constexpr char32_t kDelete = 0x7F;
constexpr char32_t kFirstVisibleAbove = 0xA0;

void appendEscape(std::string& out, char32_t character) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  out += "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) {
    out += kDigits[(character >> shift) & 0xFU];
  }
}

// Characters that turn the direction of the text around them or break its lines.
bool turnsText(char32_t character) {
  return character == 0x061C || character == 0x200E || character == 0x200F ||
         (character >= 0x2028 && character <= 0x2029) ||
         (character >= 0x202A && character <= 0x202E) ||
         (character >= 0x2066 && character <= 0x2069);
}

}  // namespace

std::string printable(std::string_view text) {
  if (std::ranges::all_of(text, [](char unit) { return unit >= ' ' && unit <= '~'; })) {
    return std::string(text);
  }
  std::string out;
  out.reserve(text.size());
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) {
    const char32_t character = decodeUtf8(at, end);
    if (character == '\n') {
      out += "\\n";
    } else if (character == '\t') {
      out += "\\t";
    } else if (character == '\r') {
      out += "\\r";
    } else if (character < ' ' || (character >= kDelete && character < kFirstVisibleAbove) ||
               turnsText(character)) {
      appendEscape(out, character);
    } else {
      appendUtf8(out, character);
    }
  }
  return out;
}

std::size_t lengthOf(std::string_view text) noexcept {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char unit) {
    return (static_cast<unsigned char>(unit) & 0xC0U) != 0x80U;
  }));
}

void Table::addColumn(std::string title, Align align) {
  const std::size_t width = lengthOf(title);
  m_columns.push_back({std::move(title), align, width});
}

void Table::addRow(std::vector<std::string> cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    cells[i] = printable(cells[i]);
    m_columns[i].width = std::max(m_columns[i].width, std::min(lengthOf(cells[i]), kWidestPadding));
  }
  m_rows.push_back(std::move(cells));
}

void Table::print(std::ostream& out, std::size_t indent) const {
  std::vector<std::string> titles;
  for (const Column& column : m_columns) {
    titles.push_back(column.title);
  }
  printRow(out, indent, titles);
  for (const auto& row : m_rows) {
    printRow(out, indent, row);
  }
}

void Table::printRow(std::ostream& out, std::size_t indent,
                     const std::vector<std::string>& cells) const {
  std::string line(indent, ' ');
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const std::size_t length = lengthOf(cells[i]);
    const std::string padding(m_columns[i].width - std::min(length, m_columns[i].width), ' ');
    if (m_columns[i].align == Align::kRight) {
      line += padding + cells[i];
    } else if (i + 1 < cells.size()) {
      line += cells[i] + padding;
    } else {
      line += cells[i];
    }
    if (i + 1 < cells.size()) {
      line += "  ";
    }
  }
  line.erase(line.find_last_not_of(' ') + 1);
  out << line << '\n';
}

}  // namespace quorvan::tool
