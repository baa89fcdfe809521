// What one "%" conversion of CString::Format makes of its argument.
#pragma once

#include <cstdint>
#include <string>

#include <quorvan/text/format_argument.h>

namespace quorvan::text {

/// One "%" conversion of a format text, between the "%" and its letter.
struct FormatConversion {
  bool leftAlign = false;
  bool plus = false;
  bool blank = false;
  bool alternate = false;
  bool zeros = false;
  int width = 0;
  int precision = -1;     ///< -1: not given
  unsigned maxBytes = 8;  ///< to which "h", "hh" and "I32" cut an integer
  wchar_t letter = L'\0';
};

/// The integer cut to the width that the conversion or the argument's own type has, extended by its
/// sign if `isSigned`.
/// \throws std::invalid_argument an argument that is no integer
std::uint64_t integerOf(const FormatConversion& conversion,
                        const platform::FormatArgument& argument, bool isSigned);

/// The argument as the conversion's letter asks for it, padded to its width: "d", "i", "u", "x",
/// "X", "o", "f", "F", "e", "E", "g", "G", "p", "s", "S", "c" or "C". \throws std::invalid_argument
/// an argument that does not suit the letter
std::wstring converted(const FormatConversion& conversion,
                       const platform::FormatArgument& argument);

}  // namespace quorvan::text
