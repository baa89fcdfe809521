// The nodes of one tree with their names and values, without their order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <unordered_map>
#include <vector>

#include <quorvan/xml/embedded/tree/arena.h>
#include <quorvan/xml/embedded/tree/name_table.h>
#include <quorvan/xml/embedded/tree/node.h>
#include <quorvan/xml/embedded/tree/value_list.h>

namespace quorvan::embedded {

/// Every operation that raises std::bad_alloc leaves the nodes as they were.
class NodeStore {
 public:
  NodeStore() = default;
  NodeStore(const NodeStore&) = delete;
  NodeStore& operator=(const NodeStore&) = delete;
  ~NodeStore() = default;

  [[nodiscard]] NameTable& names() noexcept { return m_names; }
  [[nodiscard]] const NameTable& names() const noexcept { return m_names; }

  [[nodiscard]] Node& node(Ref ref) noexcept { return *static_cast<Node*>(m_arena.at(ref)); }
  [[nodiscard]] const Node& node(Ref ref) const noexcept {
    return *static_cast<const Node*>(m_arena.at(ref));
  }

  /// A new node without values, parent and children.
  Ref create(NodeType type, NameId name) {
    const Ref ref = m_arena.allocate(kNodeWords);
    ::new (m_arena.at(ref)) Node{Node::headOf(type, name), 0, 0, 0, 0};
    m_open = {ref, ref + kNodeWords, nullptr, m_open.stamp + 1};
    return ref;
  }

  /// A new node with a few values, of which no two have one name: `nameAt(i)` gives the name of
  /// each, and `put(i, to)` writes its text into its place, at most `capacity` bytes, fewer than
  /// value_entry::kLong.
  template <class NameAt, class Put>
  Ref createWith(NodeType type, NameId name, std::size_t count, std::size_t capacity,
                 const NameAt& nameAt, const Put& put) {
    m_arena.reserve(kNodeWords +
                    static_cast<std::uint32_t>(count) * value_entry::mostWords(capacity));
    auto* const begin = static_cast<std::uint32_t*>(m_arena.at(m_arena.top()));
    const auto flags = count == 0 ? 0U : static_cast<std::uint32_t>(NodeFlag::kHasValues);
    ::new (begin) Node{Node::headOf(type, name) | flags, 0, 0, 0, 0};
    std::uint32_t* at = begin + kNodeWords;
    for (std::size_t i = 0; i < count; ++i) {
      at = value_entry::writeInPlace(at, nameAt(i), i + 1 != count,
                                     [&](char* to) { return put(i, to); });
    }
    m_open.node = 0;
    return m_arena.take(static_cast<std::uint32_t>(at - begin));
  }

  /// Gives the node a value of that name, in the place of one it has.
  void put(Ref ref, NameId name, const Value& value) {
    const bool isNew = ref == m_open.node && m_names[name].attributeStamp != m_open.stamp;
    if (!isNew || !putInline(ref, name, value)) {
      putElsewhere(ref, name, value, isNew);
    }
  }

  /// Gives the node a value of a name that none of its values has. False, with nothing done,
  /// when one has it.
  bool putNew(Ref ref, NameId name, const Value& value) {
    const bool isOpen = ref == m_open.node;
    if (isOpen ? m_names[name].attributeStamp == m_open.stamp : values(ref).find(name)) {
      return false;
    }
    if (!isOpen || !putInline(ref, name, value)) {
      putElsewhere(ref, name, value, isOpen);
    }
    return true;
  }

  /// The values of the node, in order.
  [[nodiscard]] ValueWalk values(Ref ref) const noexcept { return {valueList(ref), m_longValues}; }

  /// The one value of a node that has no attribute map; empty without one.
  [[nodiscard]] Value text(Ref ref) const noexcept {
    ValueWalk walk = values(ref);
    return walk.next() ? walk.value() : Value{{}, true};
  }

  /// Frees what the values of a node that is no longer used take outside the arena.
  void discardValues(Ref ref) noexcept;

  /// Three words for whoever keeps the order of the nodes.
  Ref allocateLinks(std::uint32_t words) { return m_arena.allocate(words); }
  [[nodiscard]] void* at(Ref ref) const noexcept { return m_arena.at(ref); }

  /// Where the arena ends, and going back there: what was made since must not be used any more,
  /// and values that it had outside the arena must have been discarded.
  [[nodiscard]] Ref top() const noexcept { return m_arena.top(); }
  void rollback(Ref top) noexcept {
    m_open.node = 0;
    m_arena.rollback(top);
  }

 private:
  // The node made last. Its names carry its stamp, and its list of values, unless that had to leave
  // its place, ends where the arena does.
  struct Open {
    Ref node = 0;
    Ref end = 0;
    std::uint32_t* lastEntry = nullptr;
    std::uint32_t stamp = 0;
  };

  // A list of values that had to leave its place behind the node. Some words stay unused at its
  // end, so that a short value may be copied in one piece of 16 bytes.
  struct ListElsewhere {
    static constexpr std::size_t kPadding = 4;

    [[nodiscard]] std::size_t used() const noexcept { return words.size() - kPadding; }
    [[nodiscard]] const std::uint32_t* begin() const noexcept {
      return used() == 0 ? nullptr : words.data();
    }

    std::vector<std::uint32_t> words = std::vector<std::uint32_t>(kPadding);
    std::size_t lastEntry = 0;
  };

  [[nodiscard]] const std::uint32_t* valueList(Ref ref) const noexcept {
    const Node& record = node(ref);
    if (record.has(NodeFlag::kHasValues)) {
      return reinterpret_cast<const std::uint32_t*>(&record + 1);
    }
    return record.has(NodeFlag::kValuesElsewhere) ? m_lists.find(ref)->second.begin() : nullptr;
  }

  // False when the new value has no place behind the node made last.
  bool putInline(Ref ref, NameId name, const Value& value) {
    if (value.text.size() >= value_entry::kLong) {
      return false;
    }
    const std::uint32_t words = value_entry::words(name, value.text.size());
    if (!m_arena.extend(m_open.end, words)) {
      return false;
    }
    auto* const at = static_cast<std::uint32_t*>(m_arena.at(m_open.end));
    value_entry::write(at, name, value, 0);
    if (m_open.lastEntry != nullptr) {
      *m_open.lastEntry |= value_entry::kMore;
    } else {
      node(ref).set(NodeFlag::kHasValues);
    }
    m_open.lastEntry = at;
    m_open.end += words;
    m_names[name].attributeStamp = m_open.stamp;
    return true;
  }

  void putElsewhere(Ref ref, NameId name, const Value& value, bool isNew);
  bool overwrite(const ValueWalk& entry, const Value& value);
  ListElsewhere& listElsewhere(Ref ref);
  static void add(ListElsewhere& list, NameId name, const Value& value, std::uint32_t longValue);
  static void replace(ListElsewhere& list, const ValueWalk& entry, const Value& value,
                      std::uint32_t longValue);
  std::uint32_t storeLong(const Value& value);

  Arena m_arena;
  NameTable m_names;
  LongValues m_longValues;
  std::unordered_map<Ref, ListElsewhere> m_lists;
  Open m_open;
};

}  // namespace quorvan::embedded
