// What documents say of the element classes in JSON, from the item tables.
#pragma once

#include <string>
#include <string_view>

namespace quorvan::tool {

/// The JSON schema of a drawing with the classes of the tables in the place of those it has.
std::string drawingSchema(std::string_view schema);

/// The table of classes in the description of JSON, in Markdown: what a host can file, with its
/// items, without those of all bars. Classes of the same items share a row.
std::string classTable();

}  // namespace quorvan::tool
