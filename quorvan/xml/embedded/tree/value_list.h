// How the values of a node lie behind its record: attributes by name, or the one nameless text of
// a text, comment, CDATA section, instruction or DOCTYPE.
//
// An entry is a word that says name, length and more, then up to two words for what does not fit
// there, then the bytes (UTF-8) filled up to a whole word. A value too long for the arena is kept
// apart, and its entry holds its number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include <quorvan/xml/embedded/tree/name_table.h>

namespace quorvan::embedded {

/// The values too long for an arena. Their bytes stay where they are.
using LongValues = std::vector<std::string>;

struct Value {
  std::string_view text;
  bool plain;  // printable ASCII with nothing to escape: may be written to a file as it stands
};

/// Where the text of a value ends that was written into its place.
struct WrittenText {
  char* end;
  bool plain;
};

namespace value_entry {

inline constexpr std::uint32_t kLengthMask = 0xFFFF;
inline constexpr std::uint32_t kLong = 0xFFFF;  // the value is kept apart
inline constexpr std::uint32_t kPlain = 1U << 16U;
inline constexpr std::uint32_t kMore = 1U << 17U;  // another entry follows
inline constexpr std::uint32_t kNameShift = 18;
inline constexpr std::uint32_t kWideName = (1U << (32U - kNameShift)) - 1;  // the name follows

/// Words in front of the bytes.
constexpr std::uint32_t headerWords(NameId name, std::size_t size) noexcept {
  return 1U + (name >= kWideName ? 1U : 0U) + (size >= kLong ? 1U : 0U);
}

/// Words of the whole entry.
constexpr std::uint32_t words(NameId name, std::size_t size) noexcept {
  const std::uint32_t header = headerWords(name, size);
  return size >= kLong ? header : header + static_cast<std::uint32_t>((size + 3) / 4);
}

/// Copies bytes, most often few of them.
inline void copyBytes(char* to, const char* from, std::size_t size) noexcept {
  // Two pieces that overlap take every length between one and both of them.
  if (size > 16) {
    std::memcpy(to, from, size);
  } else if (size >= 8) {
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    std::memcpy(&first, from, sizeof first);
    std::memcpy(&last, from + size - sizeof last, sizeof last);
    std::memcpy(to, &first, sizeof first);
    std::memcpy(to + size - sizeof last, &last, sizeof last);
  } else if (size >= 4) {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    std::memcpy(&first, from, sizeof first);
    std::memcpy(&last, from + size - sizeof last, sizeof last);
    std::memcpy(to, &first, sizeof first);
    std::memcpy(to + size - sizeof last, &last, sizeof last);
  } else if (size != 0) {
    const char middle = from[size / 2];
    const char last = from[size - 1];
    to[0] = from[0];
    to[size / 2] = middle;
    to[size - 1] = last;
  }
}

/// Writes an entry of words() words. A value too long for it has number `longValue`.
inline void write(std::uint32_t* at, NameId name, const Value& value,
                  std::uint32_t longValue) noexcept {
  const bool isLong = value.text.size() >= kLong;
  const std::uint32_t length = isLong ? kLong : static_cast<std::uint32_t>(value.text.size());
  const bool isWide = name >= kWideName;
  *at++ = ((isWide ? kWideName : name) << kNameShift) | (value.plain ? kPlain : 0) | length;
  if (isWide) {
    *at++ = name;
  }
  if (isLong) {
    *at = longValue;
  } else {
    copyBytes(reinterpret_cast<char*>(at), value.text.data(), length);
  }
}

/// The most words of an entry that writeInPlace() makes of so many bytes.
constexpr std::uint32_t mostWords(std::size_t capacity) noexcept {
  return words(kWideName, capacity);
}

/// Writes an entry whose text is put straight into its place, and returns where the entry ends.
/// `put` gets the place, writes fewer than kLong bytes there and returns their end.
template <class Put>
std::uint32_t* writeInPlace(std::uint32_t* at, NameId name, bool more, const Put& put) {
  std::uint32_t* const header = at++;
  const bool isWide = name >= kWideName;
  if (isWide) {
    *at++ = name;
  }
  char* const text = reinterpret_cast<char*>(at);
  const WrittenText written = put(text);
  const auto size = static_cast<std::uint32_t>(written.end - text);
  *header = ((isWide ? kWideName : name) << kNameShift) | (more ? kMore : 0) |
            (written.plain ? kPlain : 0) | size;
  return at + (size + 3) / 4;
}

}  // namespace value_entry

/// Walks the entries of a list.
class ValueWalk {
 public:
  ValueWalk() noexcept = default;
  /// `at` may be null for an empty list.
  ValueWalk(const std::uint32_t* at, const LongValues& longValues) noexcept
      : m_next(at), m_longValues(&longValues) {}

  /// Goes to the first, then to each next entry; false at the end.
  bool next() noexcept {
    using namespace value_entry;
    if (m_next == nullptr) {
      return false;
    }
    m_entry = m_next;
    const std::uint32_t header = *m_next++;
    m_plain = (header & kPlain) != 0;
    m_name = header >> kNameShift;
    if (m_name == kWideName) {
      m_name = *m_next++;
    }
    const std::uint32_t length = header & kLengthMask;
    if (length == kLong) {
      m_text = (*m_longValues)[*m_next++];
    } else {
      m_text = {reinterpret_cast<const char*>(m_next), length};
      m_next += (length + 3) / 4;
    }
    m_end = m_next;
    if ((header & kMore) == 0) {
      m_next = nullptr;
    }
    return true;
  }

  /// Goes to the entry of that name; false when there is none from here on.
  bool find(NameId name) noexcept {
    while (next()) {
      if (m_name == name) {
        return true;
      }
    }
    return false;
  }

  [[nodiscard]] NameId name() const noexcept { return m_name; }
  [[nodiscard]] Value value() const noexcept { return {m_text, m_plain}; }
  /// Whether the value is kept apart, and its number there.
  [[nodiscard]] bool isLong() const noexcept {
    return (*m_entry & value_entry::kLengthMask) == value_entry::kLong;
  }
  [[nodiscard]] std::uint32_t longValue() const noexcept { return isLong() ? *(m_end - 1) : 0; }
  /// Where the entry arrived at begins and ends.
  [[nodiscard]] const std::uint32_t* entry() const noexcept { return m_entry; }
  [[nodiscard]] const std::uint32_t* end() const noexcept { return m_end; }

 private:
  const std::uint32_t* m_next = nullptr;
  const LongValues* m_longValues = nullptr;
  const std::uint32_t* m_entry = nullptr;
  const std::uint32_t* m_end = nullptr;
  std::string_view m_text;
  NameId m_name = kNoName;
  bool m_plain = false;
};

}  // namespace quorvan::embedded
