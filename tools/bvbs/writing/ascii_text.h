// Texts for records of bending data, which are ASCII.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvan::tool::bvbs {

/// The text itself where a record can hold it: printable ASCII without @. Nothing otherwise.
std::optional<std::string> asciiText(std::string_view utf8);

/// The text with letters outside ASCII spelt in it: "Müller" is "Mueller", "béton" is "beton". What
/// has no such spelling becomes a question mark, @ becomes (at), a control character a blank.
std::string transliterated(std::string_view utf8);

}  // namespace quorvan::tool::bvbs
