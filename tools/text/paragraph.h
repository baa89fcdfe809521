// Running text in lines.
#pragma once

#include <cstddef>
#include <ostream>
#include <string_view>

namespace quorvan::tool {

/// Prints the text in lines of at most 78 characters, each after `indent` blanks.
void printParagraph(std::ostream& out, std::string_view text, std::size_t indent = 0);

}  // namespace quorvan::tool
