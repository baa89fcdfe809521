// Elements as objects of the drawing JSON.
#pragma once

#include <string_view>
#include <vector>

#include <tools/files/transfer_file.h>
#include <tools/model/item_value.h>
#include <tools/text/json_text.h>

namespace quorvan::tool {

/// The value of one item: points and vectors as three numbers, lists as arrays.
Json itemToJson(const ItemValue& item);

/// {"class": ..., each item under its name in the order of the file}; missing items are left out.
Json elementToJson(std::string_view className, const std::vector<ItemValue>& items);

/// The part "drawing" from the items of a control record.
Json controlToJson(const std::vector<ItemValue>& items);

}  // namespace quorvan::tool
