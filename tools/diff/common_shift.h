// Whether a drawing was moved as a whole.
#pragma once

#include <optional>

#include <tools/diff/element_content.h>
#include <tools/files/transfer_file.h>

namespace quorvan::tool {

/// The vector by which most of those elements were moved that are the only ones of their content in
/// both files; nothing where most stayed where they were, or there is no such majority of two at
/// least. One within the tolerance is none.
std::optional<Coordinates> commonShift(const TransferFile& before, ContentReader& readBefore,
                                       const TransferFile& after, ContentReader& readAfter,
                                       double tolerance);

/// Whether a coordinate of the vector is beyond the tolerance.
bool isBeyond(const Coordinates& vector, double tolerance);

}  // namespace quorvan::tool
