// Sources of which a part is made and the rest written by hand.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvan::tool {

/// The source with these parts in the place of what stands between its marks: a line with
/// "--- made from the item tables" before each part, one with "--- end of what is made" behind it.
/// Raises Failure where it has not as many pairs of marks as there are parts.
std::string withMadeParts(std::string_view source, const std::vector<std::string>& parts);

}  // namespace quorvan::tool
