#include <quorvan/filer/class_counts.h>

#include <quorvan/filer/class_count.h>
#include <quorvan/xml/name.h>

namespace quorvan::filer {

int* ClassCounts::find(const dom::Name& name) noexcept {
  Counts::value_type*& recent = m_recent[name.hash() % m_recent.size()];
  if (recent == nullptr || recent->first != name.text()) {
    const auto found = m_counts.find(name.text());
    if (found == m_counts.end()) {
      return nullptr;
    }
    recent = &*found;
  }
  return &recent->second;
}

int ClassCounts::add(const dom::Name& name, int change) {
  if (int* const count = find(name); count != nullptr) {
    *count = changedCount(*count, change);
    return *count;
  }
  return m_counts.emplace(name.text(), change).first->second;
}

void ClassCounts::add(const ClassCounts& other) {
  for (const auto& [name, count] : other.m_counts) {
    add(dom::Name(name), count);
  }
}

void ClassCounts::clear() noexcept {
  m_recent = {};
  m_counts.clear();
}

}  // namespace quorvan::filer
