// The same random numbers on every system, from a seed.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace quorvan::test {

class Random {
 public:
  explicit Random(std::uint64_t seed) : m_state(seed) {}

  std::uint64_t bits() {
    m_state += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = m_state;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31U);
  }

  /// 0 to `end` - 1.
  int below(int end) { return static_cast<int>(bits() % static_cast<std::uint64_t>(end)); }

  bool oneIn(int n) { return below(n) == 0; }

  template <class T, std::size_t N>
  const T& of(const std::array<T, N>& choices) {
    return choices[static_cast<std::size_t>(below(static_cast<int>(N)))];
  }

 private:
  std::uint64_t m_state;
};

}  // namespace quorvan::test
