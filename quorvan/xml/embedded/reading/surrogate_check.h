// Finds surrogates without their partner in a UTF-16 file: the parser takes two units for one
// character without looking at the second.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorvan::embedded {

class SurrogateCheck {
 public:
  /// Takes the next bytes of the file, of which the first call gets at least two unless there are
  /// no more. False when a high surrogate is followed by something else than a low one.
  bool accept(std::string_view bytes) noexcept;

 private:
  enum class Form : std::uint8_t { kUnknown, kBytes, kLittleEndian, kBigEndian };

  static Form formOf(std::string_view begin) noexcept;

  Form m_form = Form::kUnknown;
  bool m_isInUnit = false;
  unsigned m_firstByte = 0;
  bool m_needsLow = false;
};

}  // namespace quorvan::embedded
