#include <tools/text/csv.h>

#include <algorithm>
#include <charconv>
#include <cmath>

#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

bool isNumber(std::string text, char decimalMark) {
  std::ranges::replace(text, decimalMark, '.');
  double value = 0.0;
  const char* const end = text.data() + text.size();
  const auto [last, error] = std::from_chars(text.data(), end, value);
  return last == end && error != std::errc::invalid_argument && std::isfinite(value);
}

// Some programs leave out blanks before they look.
bool looksLikeFormula(const std::string& field, char decimalMark) {
  constexpr std::string_view kBeginnings = "=+-@\t\r";
  const std::size_t begin = field.find_first_not_of(" \n");
  return begin != std::string::npos && kBeginnings.find(field[begin]) != std::string_view::npos &&
         !isNumber(field.substr(begin), decimalMark);
}

void appendField(std::string& line, std::string_view field, bool isGuarded, char separator) {
  const std::string_view guard = isGuarded ? "'" : "";
  if (field.find_first_of("\"\r\n") == std::string_view::npos &&
      field.find(separator) == std::string_view::npos) {
    line.append(guard).append(field);
    return;
  }
  line.append(1, '"').append(guard);
  for (const char unit : field) {
    line.append(unit == '"' ? 2 : 1, unit);
  }
  line += '"';
}

}  // namespace

std::string csvLine(const std::vector<std::string>& fields, const CsvForm& form) {
  std::string line;
  for (const std::string& field : fields) {
    if (&field != &fields.front()) {
      line += form.separator;
    }
    const std::string shown = form.isShown ? printable(field) : std::string();
    appendField(line, form.isShown ? shown : field,
                form.fields == CsvFields::kGuarded && looksLikeFormula(field, form.decimalMark),
                form.separator);
  }
  return line + '\n';
}

}  // namespace quorvan::tool
