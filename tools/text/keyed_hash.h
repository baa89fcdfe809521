// A hash for tables whose keys come out of files: who does not know the key of the process cannot
// choose names or numbers that fall together.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorvan::tool {

struct KeyedHash {
  std::size_t operator()(std::string_view text) const noexcept;
  std::size_t operator()(std::int64_t number) const noexcept;
};

}  // namespace quorvan::tool
