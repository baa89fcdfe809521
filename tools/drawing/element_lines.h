// Where the elements of a drawing JSON stand in its text.
#pragma once

#include <cstddef>
#include <string_view>

namespace quorvan::tool {

/// The end of the string that begins at `at`, behind its quote.
std::size_t endOfString(std::string_view json, std::size_t at);

/// The line, from 1, on which entry `place` (from 0) of the member "elements" begins, in a text
/// that is JSON. 0 when there is none.
std::size_t lineOfElement(std::string_view json, std::size_t place);

}  // namespace quorvan::tool
