#pragma once

#include <cstddef>

namespace quorvan::items {

/// Whether a host's number, which may be anything, names an entry of a list of that size.
constexpr bool isIndex(int i, std::size_t size) noexcept {
  return i >= 0 && static_cast<std::size_t>(i) < size;
}

}  // namespace quorvan::items
