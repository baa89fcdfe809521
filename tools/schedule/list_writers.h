// A bar list as text, CSV, JSON and spreadsheet.
#pragma once

#include <filesystem>
#include <ostream>

#include <tools/schedule/bar_list.h>
#include <tools/schedule/list_wording.h>
#include <tools/text/csv.h>

namespace quorvan::tool {

struct ListWriting {
  const ListWording* words = &kEnglishList;
  bool explain = false;
  CsvForm csv;
};

void printList(const BarList& list, const ListWriting& writing, std::ostream& out);

/// A line a row of the bars.
void writeListCsv(const BarList& list, const ListWriting& writing, std::ostream& out);

void writeListJson(const BarList& list, const ListWriting& writing, std::ostream& out);

#ifdef QUORVAN_HAS_XLSXWRITER
/// A sheet a table, numbers as numbers. Raises Failure when it cannot be written.
void writeListWorkbook(const BarList& list, const ListWriting& writing,
                       const std::filesystem::path& path);
#endif

}  // namespace quorvan::tool
