// The beginning of a text that is too long to be shown whole.
#pragma once

#include <cstddef>
#include <string_view>

namespace quorvan::tool {

/// As many whole characters of UTF-8 text as `most` bytes hold.
std::string_view textBeginning(std::string_view text, std::size_t most) noexcept;

}  // namespace quorvan::tool
