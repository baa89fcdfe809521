#include <tools/files/position.h>

namespace quorvan::tool {

void movePosition(Position& position, std::string_view text, std::size_t from, std::size_t to,
                  bool isSingleByte) noexcept {
  for (std::size_t at = from; at < to; ++at) {
    const char unit = text[at];
    if (unit == '\n' || (unit == '\r' && (at + 1 == text.size() || text[at + 1] != '\n'))) {
      ++position.line;
      position.column = 1;
    } else if (unit != '\r' &&
               (isSingleByte || (static_cast<unsigned char>(unit) & 0xC0U) != 0x80U)) {
      ++position.column;
    }
  }
}

Position PositionIndex::at(std::size_t place) {
  constexpr std::size_t kStep = 1024;
  if (m_marks.empty()) {
    m_marks.push_back({1, 1});
  }
  while (m_marks.size() <= place / kStep) {
    Position next = m_marks.back();
    const std::size_t end = m_marks.size() * kStep;
    movePosition(next, m_text, end - kStep, end, m_isSingleByte);
    m_marks.push_back(next);
  }
  Position position = m_marks[place / kStep];
  movePosition(position, m_text, place / kStep * kStep, place, m_isSingleByte);
  return position;
}

}  // namespace quorvan::tool
