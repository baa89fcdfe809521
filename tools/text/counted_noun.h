// A number and what it counts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvan::tool {

/// "1 element", "2 elements"; for nouns that take an "s".
std::string counted(std::uint64_t number, std::string_view noun);

}  // namespace quorvan::tool
