// Asks for memory ahead of its use.
#pragma once

#if defined(__x86_64__) || defined(_M_X64)
#include <xmmintrin.h>
#endif

#include <cstddef>

namespace quorvan::embedded {

/// Says that `size` bytes from `begin` on will be read soon. A hint: the bytes need not be there.
inline void prefetch([[maybe_unused]] const void* begin,
                     [[maybe_unused]] std::size_t size) noexcept {
#if defined(__x86_64__) || defined(_M_X64)
  constexpr std::size_t kCacheLine = 64;
  for (std::size_t at = 0; at < size; at += kCacheLine) {
    _mm_prefetch(static_cast<const char*>(begin) + at, _MM_HINT_T0);
  }
#endif
}

}  // namespace quorvan::embedded
