#include <tools/text/csv.h>

#include <charconv>

namespace quorvan::tool {

namespace {

bool isNumber(std::string_view text) {
  double value = 0.0;
  const char* const end = text.data() + text.size();
  const auto [last, error] = std::from_chars(text.data(), end, value);
  return last == end && error != std::errc::invalid_argument;
}

bool looksLikeFormula(std::string_view field) {
  constexpr std::string_view kBeginnings = "=+-@\t\r";
  return !field.empty() && kBeginnings.find(field.front()) != std::string_view::npos &&
         !isNumber(field);
}

}  // namespace

std::string csvLine(const std::vector<std::string>& fields, CsvFields form) {
  std::string line;
  for (const std::string& field : fields) {
    if (&field != &fields.front()) {
      line += ',';
    }
    const bool isGuarded = form == CsvFields::kGuarded && looksLikeFormula(field);
    const std::string_view guard = isGuarded ? "'" : "";
    if (field.find_first_of(",\"\r\n") == std::string::npos) {
      line.append(guard).append(field);
      continue;
    }
    line.append(1, '"').append(guard);
    for (const char unit : field) {
      line += unit;
      if (unit == '"') {
        line += '"';
      }
    }
    line += '"';
  }
  return line + '\n';
}

}  // namespace quorvan::tool
