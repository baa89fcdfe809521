// Running text in lines.
#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace quorvan::tool {

/// What stands between the blanks of the text.
std::vector<std::string> wordsOf(std::string_view text);

/// The words in lines of at most `columns` characters, a blank between two: the first line behind
/// `first`, the others behind `next`. Nothing for no words.
std::string filledLines(const std::vector<std::string>& words, std::size_t columns,
                        std::string_view first, std::string_view next);

/// Prints the text in lines of at most 78 characters, each after `indent` blanks.
void printParagraph(std::ostream& out, std::string_view text, std::size_t indent = 0);

}  // namespace quorvan::tool
