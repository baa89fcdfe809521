#include <quorvan/xml/embedded/tree/arena.h>

#include <algorithm>
#include <new>

namespace quorvan::embedded {

Arena::Arena() {
  addChunk(1);
  m_top = 1;  // 0 is nowhere
}

void Arena::rollback(Ref top) noexcept {
  while ((top >> kChunkBits) + 1 < m_chunks.size()) {
    m_chunks.pop_back();
  }
  m_top = top;
  m_limit = (top & ~(kChunkWords - 1)) + m_chunks.back().usable;
}

// Chunks grow with the document, so that a small one costs little and a large one few calls.
void Arena::addChunk(std::uint32_t words) {
  const std::size_t index = m_chunks.size();
  if (words > kMaxAllocation || index >= (std::size_t{1} << (32U - kChunkBits))) {
    throw std::bad_alloc();
  }
  const std::uint32_t growth = index < 6 ? kFirstChunkWords << (2 * index) : kChunkWords;
  const std::uint32_t size = std::max(std::min(growth, kChunkWords), words + kSlackWords);
  m_chunks.reserve(index + 1);
  m_chunks.push_back({MemoryBlock(size * kWordSize), size - kSlackWords});
  m_top = static_cast<Ref>(index) << kChunkBits;
  m_limit = m_top + m_chunks.back().usable;
}

}  // namespace quorvan::embedded
