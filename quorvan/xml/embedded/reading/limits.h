// How far a file may go before it is refused like one that is not well-formed. No drawing comes
// near these; they bound what a hostile file can make its reader do.
#pragma once

#include <cstddef>

namespace quorvan::embedded {

/// Elements open at the same time, the root element included.
inline constexpr std::size_t kMaxDepth = 10000;

/// Attributes of one element.
inline constexpr std::size_t kMaxAttributes = 10000;

/// How many times its size a file may grow by the entities it declares, once it has grown beyond
/// kFreeEntityBytes.
inline constexpr float kMaxEntityAmplification = 10.0F;
inline constexpr unsigned long long kFreeEntityBytes = 1024ULL * 1024ULL;

}  // namespace quorvan::embedded
