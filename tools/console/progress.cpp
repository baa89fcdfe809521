#include <tools/console/progress.h>

#include <algorithm>
#include <utility>

namespace quorvan::tool {

namespace {

constexpr std::chrono::seconds kSilence{1};
constexpr std::chrono::milliseconds kPause{100};
constexpr std::uint64_t kCells = 30;

// Of UTF-8 text, a character each.
std::size_t columnsOf(const std::string& text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char unit) { return (static_cast<unsigned char>(unit) & 0xC0U) != 0x80U; }));
}

}  // namespace

Progress::Progress(Console& console, std::string what, Clock clock)
    : m_console(console),
      m_what(std::move(what)),
      m_clock(std::move(clock)),
      m_isOn(console.errIsTerminal),
      m_next(m_isOn ? m_clock() + kSilence : std::chrono::steady_clock::time_point()) {}

Progress::~Progress() {
  if (m_drawn != 0) {
    m_console.err << '\r' << std::string(m_drawn, ' ') << '\r' << std::flush;
  }
}

void Progress::look(std::uint64_t done, std::uint64_t total) {
  const auto now = m_clock();
  if (now < m_next || total == 0) {
    return;
  }
  m_next = now + kPause;
  const std::uint64_t percent = std::min<std::uint64_t>(100, done * 100 / total);
  const auto filled = static_cast<std::size_t>(percent * kCells / 100);
  const std::string line = m_what + " [" + std::string(filled, '#') +
                           std::string(kCells - filled, ' ') + "] " + std::to_string(percent) +
                           " %";
  m_console.err << '\r' << line << std::flush;
  m_drawn = std::max(m_drawn, columnsOf(line));
}

}  // namespace quorvan::tool
