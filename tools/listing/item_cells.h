// Items as texts of a table or a CSV file.
#pragma once

#include <string>
#include <vector>

#include <tools/model/item_value.h>

namespace quorvan::tool {

/// The item in one cell: "12.5", "True", "100, 200, 0" for a point, and the entries of a list
/// parted by blanks, "(0, 0, 0) (100, 0, 0)". Empty for an item that is missing.
std::string itemCell(const ItemValue& item);

/// The titles and the texts of an item that gets a column for each coordinate: "Point1.X" and so
/// on; one for every other kind.
std::vector<std::string> itemTitles(const items::ItemSchema& schema);
std::vector<std::string> itemCells(const ItemValue& item);

}  // namespace quorvan::tool
