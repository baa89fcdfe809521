#include <quorvan/xml/embedded/tree/child_index.h>

namespace quorvan::embedded {

namespace {

constexpr std::uint32_t kFirstShift = 26;  // 64 slots

}  // namespace

ChildIndex::ChildIndex() : m_slots(std::size_t{1} << (32U - kFirstShift)), m_shift(kFirstShift) {}

// Where the name is, or where it would be. Numbers of names are dense, so that spreading them by a
// multiplication leaves short runs.
std::size_t ChildIndex::slotOf(NameId name) const noexcept {
  std::size_t slot = (name * 0x9E3779B1U) >> m_shift;
  while (m_slots[slot] != 0 && m_names[m_slots[slot] - 1].name != name) {
    slot = (slot + 1) & (m_slots.size() - 1);
  }
  return slot;
}

ChildIndex::Names* ChildIndex::find(NameId name) noexcept {
  const std::uint32_t place = m_slots[slotOf(name)];
  return place == 0 ? nullptr : &m_names[place - 1];
}

ChildIndex::Names& ChildIndex::findOrAdd(NameId name) {
  if (Names* const known = find(name); known != nullptr) {
    return *known;
  }
  if ((m_names.size() + 1) * 2 > m_slots.size()) {
    grow();
  }
  m_names.push_back({name, 0, 0, 0});
  m_slots[slotOf(name)] = static_cast<std::uint32_t>(m_names.size());
  return m_names.back();
}

void ChildIndex::grow() {
  std::vector<std::uint32_t> larger(m_slots.size() * 2);
  m_slots.swap(larger);
  --m_shift;
  for (std::uint32_t place = 1; place <= m_names.size(); ++place) {
    m_slots[slotOf(m_names[place - 1].name)] = place;
  }
}

}  // namespace quorvan::embedded
