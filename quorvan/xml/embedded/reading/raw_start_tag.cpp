#include <quorvan/xml/embedded/reading/raw_start_tag.h>

#include <quorvan/text/utf8.h>
#include <quorvan/xml/embedded/reading/character_reference.h>

namespace quorvan::embedded {

bool RawValue::isKnown(const EntityGraph& entities) const {
  for (std::size_t at = m_text.find('&'); at != std::string_view::npos;
       at = m_text.find('&', at + 1)) {
    const std::size_t end = m_text.find(';', at);
    if (end == std::string_view::npos) {
      return false;
    }
    const std::string_view reference = m_text.substr(at + 1, end - at - 1);
    if (!referredCharacter(reference) && !entities.isWhole(reference)) {
      return false;
    }
  }
  return true;
}

std::optional<std::string> RawValue::keepingSpace(std::string_view parsed) const {
  std::string kept;
  std::string folded;
  for (std::size_t at = 0; at < m_text.size(); ++at) {
    const char unit = m_text[at];
    if (unit == '&') {
      const std::size_t end = m_text.find(';', at);
      if (end == std::string_view::npos) {
        return std::nullopt;
      }
      const auto character = referredCharacter(m_text.substr(at + 1, end - at - 1));
      if (!character) {
        return std::nullopt;
      }
      appendUtf8(kept, *character);
      appendUtf8(folded, *character);
      at = end;
    } else if (unit == '\r') {
      const bool isPair = at + 1 < m_text.size() && m_text[at + 1] == '\n';
      kept += '\n';
      folded += ' ';
      at += isPair ? 1 : 0;
    } else {
      kept += unit;
      folded += unit == '\t' || unit == '\n' ? ' ' : unit;
    }
  }
  if (folded != parsed) {
    return std::nullopt;
  }
  return kept;
}

std::optional<RawValue> RawStartTag::next() noexcept {
  const std::size_t quote = m_rest.find_first_of("\"'");
  if (quote == std::string_view::npos) {
    return std::nullopt;
  }
  const std::size_t end = m_rest.find(m_rest[quote], quote + 1);
  if (end == std::string_view::npos) {
    return std::nullopt;
  }
  const RawValue value(m_rest.substr(quote + 1, end - quote - 1));
  m_rest.remove_prefix(end + 1);
  return value;
}

}  // namespace quorvan::embedded
