#include <quorvan/xml/embedded/reading/surrogate_check.h>

namespace quorvan::embedded {

bool SurrogateCheck::accept(std::string_view bytes) noexcept {
  if (m_form == Form::kUnknown) {
    m_form = formOf(bytes);
  }
  if (m_form == Form::kBytes) {
    return true;
  }
  for (const char unit : bytes) {
    const unsigned byte = static_cast<unsigned char>(unit);
    if (!m_isInUnit) {
      m_isInUnit = true;
      m_firstByte = byte;
      continue;
    }
    m_isInUnit = false;
    const unsigned high = m_form == Form::kLittleEndian ? byte : m_firstByte;
    const bool isLow = high >= 0xDC && high <= 0xDF;
    if (m_needsLow && !isLow) {
      return false;
    }
    m_needsLow = high >= 0xD8 && high <= 0xDB;
  }
  return true;
}

// By the mark, or by the "<" that stands first where there is none.
SurrogateCheck::Form SurrogateCheck::formOf(std::string_view begin) noexcept {
  using namespace std::string_view_literals;
  const std::string_view first = begin.substr(0, 2);
  if (first == "\xFF\xFE"sv || first == "<\0"sv) {
    return Form::kLittleEndian;
  }
  if (first == "\xFE\xFF"sv || first == "\0<"sv) {
    return Form::kBigEndian;
  }
  return Form::kBytes;
}

}  // namespace quorvan::embedded
