// Choices read from the bytes of a fuzz input; 0 once they have run out.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>

namespace quorvan::fuzz {

class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : m_at(data), m_end(data + size) {}

  [[nodiscard]] bool isOver() const { return m_at == m_end; }

  std::uint8_t byte() { return isOver() ? std::uint8_t{0} : *m_at++; }

  /// 0 to `end` - 1; `end` is at most 256.
  int below(int end) { return byte() % end; }

  std::uint64_t bits(int bytes) {
    std::uint64_t value = 0;
    for (int i = 0; i < bytes; ++i) {
      value = (value << 8U) | byte();
    }
    return value;
  }

  std::int32_t number() {
    return below(2) == 0 ? below(5) - 1 : static_cast<std::int32_t>(bits(4));
  }

  /// Often a small one, sometimes any pattern of bits.
  double real() { return below(4) != 0 ? below(5) - 1.0 : std::bit_cast<double>(bits(8)); }

  /// Up to fifteen characters of the first plane.
  std::wstring text() {
    std::wstring characters;
    for (int count = below(16); count > 0; --count) {
      characters += static_cast<wchar_t>(below(4) != 0 ? byte() : bits(2));
    }
    return characters;
  }

  template <class Choice, std::size_t N>
  const Choice& pick(const Choice (&choices)[N]) {
    return choices[below(static_cast<int>(N))];
  }

 private:
  const std::uint8_t* m_at;
  const std::uint8_t* m_end;
};

}  // namespace quorvan::fuzz
