// What stood in a file behind a name the last time: a drawing has the same tags in the same order
// again and again, and comparing a whole tag costs less than looking at its characters.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include <quorvan/xml/embedded/tree/name_table.h>

namespace quorvan::embedded {

class TagMemory {
 public:
  /// So many bytes must be readable where a tag is looked for.
  static constexpr std::size_t kMost = 32;

  /// The bytes up to the value of an attribute, opening quote included: the beginning of a tag, or
  /// a further attribute. What they mean follows from them alone, wherever they stand.
  class Tag {
   public:
    /// Whether the tag, if there is one, stands at `at`.
    [[nodiscard]] bool isAt(const char* at) const noexcept {
      Words there;
      Words mask;
      std::memcpy(there.data(), at, kMost);
      std::memcpy(mask.data(), kMask.data() + kMost - m_length, kMost);
      std::uint64_t difference = 0;
      for (std::size_t i = 0; i < there.size(); ++i) {
        difference |= (there[i] ^ m_text[i]) & mask[i];
      }
      return difference == 0 && m_length != 0;
    }

    [[nodiscard]] std::size_t length() const noexcept { return m_length; }
    [[nodiscard]] NameId element() const noexcept { return m_element; }  // kNoName: the same one
    [[nodiscard]] NameId attribute() const noexcept { return m_attribute; }

   private:
    friend class TagMemory;
    using Words = std::array<std::uint64_t, kMost / sizeof(std::uint64_t)>;

    Words m_text = {};
    std::uint32_t m_length = 0;
    NameId m_element = kNoName;
    NameId m_attribute = kNoName;
  };

  /// What is expected behind the name of an attribute; or behind that of an element in another.
  [[nodiscard]] Tag& behind(NameId attribute) noexcept { return m_tags[attribute % kTags]; }
  [[nodiscard]] Tag& behind(NameId element, NameId parent) noexcept {
    return m_tags[(element + parent * kSpread) % kTags];
  }

  /// From now on `text` is expected there. One that is too long is not kept.
  static void learn(Tag& tag, std::string_view text, NameId element, NameId attribute) noexcept {
    if (text.size() <= kMost) {
      std::memcpy(tag.m_text.data(), text.data(), text.size());
      tag.m_length = static_cast<std::uint32_t>(text.size());
      tag.m_element = element;
      tag.m_attribute = attribute;
    }
  }

 private:
  // Enough for the classes of a drawing and their items, so that hardly two share a place.
  static constexpr std::size_t kTags = 256;
  static constexpr NameId kSpread = 19;

  // From where on it masks as many bytes as a tag has.
  static constexpr std::array<unsigned char, 2 * kMost> kMask = [] {
    std::array<unsigned char, 2 * kMost> mask = {};
    for (std::size_t i = 0; i < kMost; ++i) {
      mask[i] = 0xFF;
    }
    return mask;
  }();

  std::array<Tag, kTags> m_tags;
};

}  // namespace quorvan::embedded
