// The elements of a file with all their items, a line each, as a page shows them one by one.
#pragma once

#include <cstdint>
#include <ostream>

#include <tools/files/transfer_file.h>
#include <tools/text/json_text.h>

namespace quorvan::tool {

/// A line each, which can stand in a script: the number of the class, then, with tabs between them,
/// the index, the description and the items, as in JSON without its quotes. Nothing stands for what
/// is as in the row before of the same class, and for an index that is the row's number among those
/// of its class; a quote for an empty text. Nothing at the end is left out. Every kKeyRows rows of
/// a class one has all its texts. Without descriptions they are empty.
inline constexpr std::uint32_t kKeyRows = 64;

/// What goes before the rows.
struct ElementHead {
  Json classes = Json::array();  // [name, short name, [item, ...]] by number
  Json marks = Json::array();    // [mark, [place, ...]], ascending; each place from the one before
};

ElementHead writeElementRows(const TransferFile& file, bool isDescribed, std::ostream& out);

}  // namespace quorvan::tool
