// Raw memory in large pieces.
#pragma once

#include <cstddef>
#include <utility>

namespace quorvan::embedded {

/// Owns a piece of memory, not initialised. A large one asks the system for large pages: getting
/// its memory page by page costs more than filling it.
class MemoryBlock {
 public:
  /// Raises std::bad_alloc.
  explicit MemoryBlock(std::size_t size);
  MemoryBlock(MemoryBlock&& other) noexcept
      : m_bytes(std::exchange(other.m_bytes, nullptr)), m_isLarge(other.m_isLarge) {}
  MemoryBlock& operator=(MemoryBlock&& other) noexcept {
    std::swap(m_bytes, other.m_bytes);
    std::swap(m_isLarge, other.m_isLarge);
    return *this;
  }
  ~MemoryBlock();

  [[nodiscard]] std::byte* bytes() const noexcept { return m_bytes; }

 private:
  std::byte* m_bytes;
  bool m_isLarge;
};

}  // namespace quorvan::embedded
