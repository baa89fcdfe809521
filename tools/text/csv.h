// Comma-separated values: fields with a separator, a quote or a line end stand in quotes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvan::tool {

/// What becomes of a field that a spreadsheet would take for a formula: one that begins with = + -
/// @ or a tab and is no number.
enum class CsvFields : std::uint8_t {
  kGuarded,  // an apostrophe stands before it
  kRaw,      // it stays as it is, for programs
};

/// How a line is written.
struct CsvForm {
  char separator = ',';
  char decimalMark = '.';
  CsvFields fields = CsvFields::kGuarded;
  bool isShown = false;  // on a terminal: what could steer it is written out
};

/// One line with its line end.
std::string csvLine(const std::vector<std::string>& fields, const CsvForm& form = {});

}  // namespace quorvan::tool
