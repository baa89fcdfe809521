// Elements in the words of the trade.
#pragma once

#include <string>
#include <vector>

#include <tools/files/transfer_file.h>
#include <tools/model/item_value.h>

namespace quorvan::tool {

/// "straight bar, mark 5, diameter 16 B500B, length 4250, at (30, 40, 0)".
std::string describe(const Element& element, const std::vector<ItemValue>& items);

/// "(30, 40, 0)", with three decimals at most.
std::string placeText(const Coordinates& point);

}  // namespace quorvan::tool
