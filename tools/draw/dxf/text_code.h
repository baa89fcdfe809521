// Texts as a DXF carries them: one line of windows-1252.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvan::tool {

/// What became of texts on their way.
struct TextLosses {
  bool isCut = false;      // what is beyond the longest line
  bool isEscaped = false;  // characters that the code page lacks: \U+nnnn, or ? beyond four digits
  bool isBroken = false;   // line ends and other control characters: blanks

  friend bool operator==(const TextLosses&, const TextLosses&) = default;
};

/// The text in at most `most` bytes. A diameter sign becomes %%c: U+2300, U+2205, the letter with a
/// stroke where a number follows. Codes such as %%c that the text has itself stay what they are; a
/// caret, which begins a code as well, is written so that it reads as one. What is lost is noted.
std::string dxfText(std::string_view utf8, std::size_t most, TextLosses& losses);

}  // namespace quorvan::tool
