// Values for the items of every element class, and their text in a file, which is put together here
// independently of the program and of the library.
#pragma once

#include <random>
#include <string>
#include <vector>

#include <quorvan/elements/element_classes.h>

#include <tools/model/item_value.h>

namespace quorvan::test {

/// Values at random, none of them missing. Numbers have three binary places, which any text of
/// seven decimals holds exactly; texts are of any script.
std::vector<tool::ItemValue> randomItems(const items::ElementSchema& schema, std::mt19937& random);

/// Whether both hold the same, wherever they stand.
bool sameValue(const tool::ItemValue& a, const tool::ItemValue& b);

/// The item in a file.
std::string itemText(const tool::ItemValue& item);

/// A class element with these items in this order.
std::string elementText(const items::ElementSchema& schema,
                        const std::vector<tool::ItemValue>& items, int index = 1);

/// The same without the item of that name.
std::string elementTextWithout(const items::ElementSchema& schema,
                               const std::vector<tool::ItemValue>& items, std::string_view missing);

}  // namespace quorvan::test
