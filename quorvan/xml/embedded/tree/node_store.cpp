#include <quorvan/xml/embedded/tree/node_store.h>

#include <limits>
#include <new>

namespace quorvan::embedded {

void NodeStore::discardValues(Ref ref) noexcept {
  if (m_longValues.empty() && m_lists.empty()) {
    return;
  }
  for (ValueWalk walk = values(ref); walk.next();) {
    if (walk.isLong()) {
      std::string().swap(m_longValues[walk.longValue()]);
    }
  }
  while (!m_longValues.empty() && m_longValues.back().empty()) {
    m_longValues.pop_back();
  }
  m_lists.erase(ref);
}

// The rare ways: a value that is there already, one too long for the arena, a list that cannot
// grow where it is.
void NodeStore::putElsewhere(Ref ref, NameId name, const Value& value, bool isNew) {
  ValueWalk walk = values(ref);
  const bool isThere = !isNew && walk.find(name);
  if (isThere && overwrite(walk, value)) {
    return;
  }
  const std::uint32_t longValue = storeLong(value);
  ListElsewhere& list = listElsewhere(ref);
  if (isThere) {
    walk = values(ref);
    walk.find(name);
    const bool wasLong = walk.isLong();
    const std::uint32_t former = walk.longValue();
    replace(list, walk, value, longValue);
    if (wasLong) {
      std::string().swap(m_longValues[former]);
    }
    return;
  }
  add(list, name, value, longValue);
  if (ref == m_open.node) {
    m_names[name].attributeStamp = m_open.stamp;
  }
}

// Puts the value into the place of the one there, if it fits that exactly.
bool NodeStore::overwrite(const ValueWalk& entry, const Value& value) {
  const bool isLong = value.text.size() >= value_entry::kLong;
  if (entry.isLong() != isLong ||
      value_entry::words(entry.name(), value.text.size()) != entry.end() - entry.entry()) {
    return false;
  }
  const std::uint32_t longValue = entry.longValue();
  if (isLong) {
    m_longValues[longValue] = value.text;
  }
  auto* const at = const_cast<std::uint32_t*>(entry.entry());
  const std::uint32_t more = *at & value_entry::kMore;
  value_entry::write(at, entry.name(), value, longValue);
  *at |= more;
  return true;
}

// The node's list in its own memory, where it can grow.
NodeStore::ListElsewhere& NodeStore::listElsewhere(Ref ref) {
  Node& record = node(ref);
  if (record.has(NodeFlag::kValuesElsewhere)) {
    return m_lists.find(ref)->second;
  }
  ListElsewhere list;
  const std::uint32_t* const begin = valueList(ref);
  for (ValueWalk walk = values(ref); walk.next();) {
    list.lastEntry = static_cast<std::size_t>(walk.entry() - begin);
    list.words.insert(list.words.end() - ListElsewhere::kPadding, walk.entry(), walk.end());
  }
  ListElsewhere& kept = m_lists[ref];
  kept = std::move(list);
  record.clear(NodeFlag::kHasValues);
  record.set(NodeFlag::kValuesElsewhere);
  if (m_open.node == ref) {
    m_open.end = 0;
  }
  return kept;
}

void NodeStore::add(ListElsewhere& list, NameId name, const Value& value, std::uint32_t longValue) {
  const std::size_t at = list.used();
  list.words.resize(list.words.size() + value_entry::words(name, value.text.size()));
  if (at != 0) {
    list.words[list.lastEntry] |= value_entry::kMore;
  }
  value_entry::write(&list.words[at], name, value, longValue);
  list.lastEntry = at;
}

void NodeStore::replace(ListElsewhere& list, const ValueWalk& entry, const Value& value,
                        std::uint32_t longValue) {
  const auto begin = static_cast<std::size_t>(entry.entry() - list.words.data());
  const auto end = static_cast<std::size_t>(entry.end() - list.words.data());
  const std::uint32_t words = value_entry::words(entry.name(), value.text.size());
  const NameId name = entry.name();
  const std::uint32_t more = *entry.entry() & value_entry::kMore;
  std::vector<std::uint32_t> changed;
  changed.reserve(list.words.size() - (end - begin) + words);
  const auto at = [&](std::size_t index) {
    return list.words.begin() + static_cast<std::ptrdiff_t>(index);
  };
  changed.insert(changed.end(), at(0), at(begin));
  changed.resize(begin + words);
  changed.insert(changed.end(), at(end), list.words.end());
  value_entry::write(&changed[begin], name, value, longValue);
  changed[begin] |= more;
  if (list.lastEntry > begin) {
    list.lastEntry += words - (end - begin);
  }
  list.words = std::move(changed);
}

// Keeps the value apart if it is too long for the arena, and gives the number by which it is found.
std::uint32_t NodeStore::storeLong(const Value& value) {
  if (value.text.size() < value_entry::kLong) {
    return 0;
  }
  if (m_longValues.size() >= std::numeric_limits<std::uint32_t>::max()) {
    throw std::bad_alloc();
  }
  m_longValues.emplace_back(value.text);
  return static_cast<std::uint32_t>(m_longValues.size() - 1);
}

}  // namespace quorvan::embedded
