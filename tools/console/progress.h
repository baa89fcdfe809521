// The bar that a long job draws on a terminal.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

#include <tools/console/console.h>

namespace quorvan::tool {

/// One job. Nothing is drawn in its first second, nor ever when standard error is no terminal;
/// what was drawn is wiped away at the end.
class Progress {
 public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  Progress(Console& console, std::string what, Clock clock = std::chrono::steady_clock::now);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress();

  /// `done` of `total` are done. Cheap enough to be called for every element.
  void report(std::uint64_t done, std::uint64_t total) {
    if (m_isOn && (++m_calls & kCallMask) == 0) {
      look(done, total);
    }
  }

 private:
  static constexpr std::uint32_t kCallMask = 0xFF;

  void look(std::uint64_t done, std::uint64_t total);

  Console& m_console;
  std::string m_what;
  Clock m_clock;
  bool m_isOn;
  std::uint32_t m_calls = 0;
  std::chrono::steady_clock::time_point m_next;
  std::size_t m_drawn = 0;
};

}  // namespace quorvan::tool
