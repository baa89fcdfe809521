// Random choices that are the same on every system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace quorvan::test::model {

class RandomSource {
 public:
  explicit RandomSource(std::uint32_t seed) : m_engine(seed) {}

  /// From 0 to `count` - 1.
  int below(int count) { return static_cast<int>(m_engine() % static_cast<std::uint32_t>(count)); }

  bool oneIn(int count) { return below(count) == 0; }

  template <class Choice, std::size_t N>
  const Choice& pick(const Choice (&choices)[N]) {
    return choices[below(static_cast<int>(N))];
  }

 private:
  std::mt19937 m_engine;
};

}  // namespace quorvan::test::model
