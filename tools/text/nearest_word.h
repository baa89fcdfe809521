// What somebody may have meant who mistyped a word.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace quorvan::tool {

/// The word that takes the fewest changes of a letter, if that is at most a third of its letters;
/// empty where none is so near.
std::string nearestWord(std::string_view typed, std::span<const std::string> words);

}  // namespace quorvan::tool
