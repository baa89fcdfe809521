// A bar list as an HTML page to read and to print.
#pragma once

#include <ostream>

#include <tools/schedule/bar_list.h>
#include <tools/schedule/list_writers.h>

namespace quorvan::tool {

/// One page that stands alone and loads nothing, with a dimensioned sketch in each row.
void writeListPage(const BarList& list, const ListWriting& writing, std::ostream& out);

}  // namespace quorvan::tool
