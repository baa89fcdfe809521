// Characters that XML forbids, which a file may hold all the same.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <tools/files/position.h>

namespace quorvan::tool {

/// A text with each such character, written out or as a reference, replaced by a reference to
/// U+FFFD, and the places where they stood.
struct CleanedText {
  std::string text;
  std::vector<Position> places;
};

/// `text` comes from plainText().
CleanedText withoutForbiddenCharacters(std::string_view text, bool isSingleByte);

}  // namespace quorvan::tool
