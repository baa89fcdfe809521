#include <tools/text/csv.h>

namespace quorvan::tool {

std::string csvLine(const std::vector<std::string>& fields, char separator) {
  std::string line;
  for (const std::string& field : fields) {
    if (&field != &fields.front()) {
      line += separator;
    }
    if (field.find_first_of("\"\r\n") == std::string::npos &&
        field.find(separator) == std::string::npos) {
      line += field;
      continue;
    }
    line += '"';
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
