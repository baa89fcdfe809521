// The memory of one document: words of four bytes in a few large blocks, addressed by 32-bit
// references. Addresses stay valid until the arena dies; nothing is given back one by one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <quorvan/xml/embedded/tree/memory_block.h>

namespace quorvan::embedded {

/// Where something lies in an arena, in words; 0 is nowhere.
using Ref = std::uint32_t;

/// Hands out words from its end. Not copied, not moved.
class Arena {
 private:
  static constexpr std::uint32_t kChunkBits = 21;
  static constexpr std::uint32_t kChunkWords = 1U << kChunkBits;
  static constexpr std::uint32_t kFirstChunkWords = 512;
  // Never handed out: a short value may be copied in one piece of 16 bytes, past its end, and the
  // end of one chunk is never the beginning of the next.
  static constexpr std::uint32_t kSlackWords = 8;

 public:
  /// The most words that one allocation may ask for.
  static constexpr std::uint32_t kMaxAllocation = kChunkWords - kSlackWords;

  Arena();
  Arena(const Arena&) = delete;
  Arena& operator=(const Arena&) = delete;
  ~Arena() = default;

  /// Sees to it that so many words in a row come next. Raises std::bad_alloc.
  void reserve(std::uint32_t words) {
    if (m_limit - m_top < words) {
      addChunk(words);
    }
  }

  /// `words` words in a row, not initialised. Raises std::bad_alloc.
  Ref allocate(std::uint32_t words) {
    reserve(words);
    return take(words);
  }

  /// The same with words that reserve() has seen to.
  Ref take(std::uint32_t words) noexcept {
    const Ref taken = m_top;
    m_top += words;
    return taken;
  }

  /// Makes what was handed out last, and ends at `end`, longer by `words`. False, with nothing
  /// done, when something else was handed out since or the room does not reach.
  bool extend(Ref end, std::uint32_t words) noexcept {
    if (end != m_top || m_limit - m_top < words) {
      return false;
    }
    m_top += words;
    return true;
  }

  /// Where the next words come from, as far as their chunk reaches.
  [[nodiscard]] Ref top() const noexcept { return m_top; }

  /// Takes back everything that was handed out after top() was `top`.
  void rollback(Ref top) noexcept;

  [[nodiscard]] void* at(Ref ref) const noexcept {
    return m_chunks[ref >> kChunkBits].words.bytes() + (ref & (kChunkWords - 1)) * kWordSize;
  }

 private:
  static constexpr std::size_t kWordSize = sizeof(std::uint32_t);

  struct Chunk {
    MemoryBlock words;
    std::uint32_t usable;
  };

  void addChunk(std::uint32_t words);

  std::vector<Chunk> m_chunks;
  Ref m_top = 0;
  Ref m_limit = 0;
};

}  // namespace quorvan::embedded
