// What is said about a row of the bar list.
#pragma once

#include <string>
#include <vector>

#include <tools/schedule/bar_list.h>
#include <tools/schedule/list_wording.h>

namespace quorvan::tool {

/// "StraightBar 1-4, 7; Repartition 2; end-on PointBar 3", by the "index" of the elements.
std::string sourceText(const TransferFile& file, const BarRow& row, const ListWording& words);

/// How its number came about: "3 drawn, 1 of them repeated by Repartition 4 (5 bars): 7".
std::string explanationOf(const TransferFile& file, const BarRow& row, const ListWording& words);

/// What whoever orders from the row should know.
std::vector<std::string> remarksOn(const TransferFile& file, const BarRow& row,
                                   const ListWording& words);

/// The indexes of the elements as runs: "1-4, 7".
std::string indexesOf(const TransferFile& file, const std::vector<const Element*>& elements);

}  // namespace quorvan::tool
