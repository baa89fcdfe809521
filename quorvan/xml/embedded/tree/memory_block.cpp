#include <quorvan/xml/embedded/tree/memory_block.h>

#if __has_include(<sys/mman.h>)
#include <sys/mman.h>
#endif

#include <new>

namespace quorvan::embedded {

namespace {

constexpr std::size_t kLargePage = std::size_t{2} * 1024 * 1024;
constexpr std::align_val_t kLargePageAlignment{kLargePage};

}  // namespace

MemoryBlock::MemoryBlock(std::size_t size) : m_isLarge(size >= kLargePage) {
  if (!m_isLarge) {
    m_bytes = static_cast<std::byte*>(::operator new(size));
    return;
  }
  m_bytes = static_cast<std::byte*>(::operator new(size, kLargePageAlignment));
#ifdef MADV_HUGEPAGE
  // Without them it goes as well, only slower.
  static_cast<void>(::madvise(m_bytes, size, MADV_HUGEPAGE));
#endif
}

MemoryBlock::~MemoryBlock() {
  if (m_isLarge) {
    ::operator delete(m_bytes, kLargePageAlignment);
  } else {
    ::operator delete(m_bytes);
  }
}

}  // namespace quorvan::embedded
