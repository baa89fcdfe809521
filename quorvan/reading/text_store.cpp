#include <quorvan/reading/text_store.h>

#include <algorithm>

namespace quorvan::reading {

namespace {

constexpr std::size_t kBlock = 1024;

template <class Unit>
const Unit* copied(std::byte* to, std::basic_string_view<Unit> text) noexcept {
  auto* const units = reinterpret_cast<Unit*>(to);
  std::copy(text.begin(), text.end(), units);
  units[text.size()] = Unit();
  return units;
}

}  // namespace

const char* TextStore::keep(std::string_view text) {
  return copied(take(text.size() + 1, 1), text);
}

const wchar_t* TextStore::keep(std::wstring_view text) {
  return copied(take((text.size() + 1) * sizeof(wchar_t), alignof(wchar_t)), text);
}

void TextStore::clear() noexcept {
  if (m_blocks.size() > 1) {
    m_blocks.erase(m_blocks.begin() + 1, m_blocks.end());
  }
  m_used = 0;
}

std::byte* TextStore::take(std::size_t size, std::size_t alignment) {
  m_used = (m_used + alignment - 1) / alignment * alignment;
  if (m_blocks.empty() || m_blocks.back().size < m_used || m_blocks.back().size - m_used < size) {
    const std::size_t fresh = std::max(kBlock, size);
    m_blocks.push_back({std::make_unique_for_overwrite<std::byte[]>(fresh), fresh});
    m_used = 0;
  }
  std::byte* const taken = m_blocks.back().bytes.get() + m_used;
  m_used += size;
  return taken;
}

}  // namespace quorvan::reading
