// The names of one tree, each kept once and known by a number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include <quorvan/xml/embedded/tree/arena.h>
#include <quorvan/xml/name.h>

namespace quorvan::embedded {

/// The number of a name in its tree; 0 is none.
using NameId = std::uint32_t;

/// A tree holds at most so many different names; one more raises std::bad_alloc.
inline constexpr std::uint32_t kMaxNames = 1U << 23U;

// Names that every tree has from the beginning.
inline constexpr NameId kNoName = 0;
inline constexpr NameId kXmlName = 1;
inline constexpr NameId kTextName = 2;
inline constexpr NameId kCDataName = 3;
inline constexpr NameId kCommentName = 4;
inline constexpr NameId kDocumentName = 5;
inline constexpr NameId kVersionName = 6;
inline constexpr NameId kEncodingName = 7;
inline constexpr NameId kStandaloneName = 8;

/// A name and what the tree remembers with it. The text stands as an attribute begins in a file:
/// behind a blank and before an equal sign and a quote; bytes that may be read follow.
struct NameEntry {
  const char* text;
  std::uint32_t length;
  std::uint32_t hash;
  // The element that was given an attribute of this name last, as a number that goes up with
  // every node made.
  std::uint32_t attributeStamp;
  // The walk over the children of one node that met this name last, and the first child of it.
  std::uint32_t childStamp;
  Ref child;
  bool isXmlName;  // may name an element or attribute
  bool isAscii;

  [[nodiscard]] std::string_view view() const noexcept { return {text, length}; }
  [[nodiscard]] dom::Name name() const noexcept { return {view(), hash}; }
};

/// Finds names by their hash. Many different names of one hash, which a hostile file can have,
/// cost a logarithmic search and no more.
class NameTable {
 public:
  NameTable();
  NameTable(const NameTable&) = delete;
  NameTable& operator=(const NameTable&) = delete;
  ~NameTable() = default;

  /// The number of the name, kNoName when the tree does not have it.
  [[nodiscard]] NameId find(const dom::Name& name) noexcept {
    const Slot& first = m_slots[name.hash() & m_mask];
    // The names that the library asks for again and again are literals: one look at their address
    // spares the comparison.
    if (name.isLiteral() && first.literal == name.text().data() && first.hash == name.hash()) {
      return first.id;
    }
    return search(name);
  }

  /// The number of the name, which is taken in if the tree does not have it.
  NameId intern(const dom::Name& name) {
    const NameId found = find(name);
    return found != kNoName ? found : add(name);
  }

  [[nodiscard]] const NameEntry& operator[](NameId id) const noexcept { return m_entries[id]; }
  [[nodiscard]] NameEntry& operator[](NameId id) noexcept { return m_entries[id]; }

  /// Sets the childStamp of every name to 0.
  void clearChildStamps() noexcept {
    for (NameEntry& entry : m_entries) {
      entry.childStamp = 0;
    }
  }

 private:
  struct Slot {
    const char* literal;  // the bytes that live for ever by which the name was asked for last
    std::uint32_t hash;
    NameId id;
  };
  // Beyond so many steps a name is looked up in, and taken into, the ordered map.
  static constexpr std::size_t kMaxProbes = 32;

  [[nodiscard]] NameId search(const dom::Name& name) noexcept;
  NameId add(const dom::Name& name);
  const char* store(std::string_view text);
  void place(NameId id);
  void grow();

  std::vector<NameEntry> m_entries;
  std::vector<Slot> m_slots;
  std::size_t m_mask;
  std::map<std::string_view, NameId> m_overflow;
  std::vector<std::unique_ptr<char[]>> m_blocks;
  char* m_free = nullptr;
  std::size_t m_room = 0;
};

}  // namespace quorvan::embedded
