// Places in the text of a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quorvan::tool {

/// A place in the file, in lines and characters from 1; line 0 where it is not known.
struct Position {
  std::uint32_t line = 0;
  std::uint32_t column = 0;
};

/// Moves the position of the unit at `from` to that of the unit at `to`. A line ends with CR LF, LF
/// or CR. `text` is UTF-8 unless each of its bytes is a character.
void movePosition(Position& position, std::string_view text, std::size_t from, std::size_t to,
                  bool isSingleByte) noexcept;

/// Finds positions in a text in any order, counting its lines once.
class PositionIndex {
 public:
  PositionIndex() = default;
  /// `text` outlives this.
  PositionIndex(std::string_view text, bool isSingleByte)
      : m_text(text), m_isSingleByte(isSingleByte) {}

  [[nodiscard]] Position at(std::size_t place);

 private:
  std::string_view m_text;
  bool m_isSingleByte = false;
  std::vector<Position> m_marks;  // of every place that is a multiple of a fixed step
};

}  // namespace quorvan::tool
