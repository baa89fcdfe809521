// Finds the names that come again and again in a file, by their bytes and without their hash.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include <quorvan/xml/embedded/tree/name_table.h>

namespace quorvan::embedded {

class NameCache {
 public:
  explicit NameCache(NameTable& names) noexcept : m_names(names) {}

  /// The number of the name, which is taken in if it is new. Eight bytes from its beginning must
  /// be readable, whatever its length.
  NameId idOf(std::string_view name) {
    Entry wanted;
    std::memcpy(&wanted.first, name.data(), sizeof wanted.first);
    if (name.size() < sizeof wanted.first) {
      wanted.first = keepFirst(wanted.first, name.size());
    } else {
      std::memcpy(&wanted.last, name.data() + name.size() - sizeof wanted.last, sizeof wanted.last);
    }
    wanted.length = static_cast<std::uint32_t>(name.size());
    Entry& entry = m_entries[slotOf(wanted)];
    const bool isSame =
        entry.length == wanted.length && entry.first == wanted.first && entry.last == wanted.last &&
        entry.id != kNoName &&
        (name.size() <= 2 * sizeof wanted.first || m_names[entry.id].view() == name);
    if (!isSame) {
      wanted.id = m_names.intern(dom::Name(name));
      entry = wanted;
    }
    return entry.id;
  }

 private:
  // Names of up to 16 bytes are their first and last eight.
  struct Entry {
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    std::uint32_t length = 0;
    NameId id = kNoName;
  };
  static constexpr std::size_t kSlotBits = 8;

  static std::uint64_t keepFirst(std::uint64_t bytes, std::size_t count) noexcept {
    const std::size_t bits = 8 * count;
    if constexpr (std::endian::native == std::endian::little) {
      return bytes & ((std::uint64_t{1} << bits) - 1);
    } else {
      return count == 0 ? 0 : bytes & ~(~std::uint64_t{0} >> bits);
    }
  }
  static std::size_t slotOf(const Entry& entry) noexcept {
    const std::uint64_t mixed = (entry.first ^ std::rotl(entry.last, 29)) * 0x9E3779B97F4A7C15U;
    return static_cast<std::size_t>(mixed >> (64U - kSlotBits));
  }

  NameTable& m_names;
  std::array<Entry, std::size_t{1} << kSlotBits> m_entries = {};
};

}  // namespace quorvan::embedded
