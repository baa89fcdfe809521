// From which elements a row came, in words.
#pragma once

#include <string>

#include <tools/schedule/bar_list.h>

namespace quorvan::tool {

/// "StraightBar 1-4, 7; Repartition 2; end-on PointBar 3", by the "index" of the elements.
std::string sourceText(const TransferFile& file, const BarRow& row);

}  // namespace quorvan::tool
