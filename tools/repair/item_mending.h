// The right attribute for an item, where it is certain.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <quorvan/elements/items/item_schema.h>

#include <tools/files/document_tree.h>

namespace quorvan::tool {

/// An attribute to be written in the place of all those of an item.
struct MendedAttribute {
  std::string_view name;
  std::string value;
};

/// Nothing for an item that is right, or whose right value is not certain.
std::optional<MendedAttribute> mend(const DocumentTree& tree, const Node& item,
                                    const items::ItemSchema& schema);

/// A number whose point is a comma, with a point; nothing for any other text.
std::optional<std::string> withPoint(std::string_view text);

}  // namespace quorvan::tool
