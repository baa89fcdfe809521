// The texts of a PDF as the letters of its fonts.
#pragma once

#include <string>
#include <unordered_map>

#include <tools/draw/writers/pdf_fonts.h>

namespace quorvan::tool {

/// A text at a size of 1, from its beginning on its base line: its operators, without those that
/// say where it stands.
struct PdfText {
  double width = 0.0;
  std::string letters;  // who searches finds the text in them
  std::string outline;  // the same letters, which say nothing
};

class PdfTexts {
 public:
  PdfTexts();

  /// Lays a text out; one that was laid out before costs nothing. Gives whether all its letters are
  /// there and can be put into a file.
  bool add(const std::string& text);

  /// A text that was added.
  [[nodiscard]] const PdfText& of(const std::string& text) const { return m_texts.at(text); }

  [[nodiscard]] const PdfFonts& fonts() const noexcept { return m_fonts; }

 private:
  Owned<PangoLayout> m_layout;
  PdfFonts m_fonts;
  std::unordered_map<std::string, PdfText> m_texts;
};

}  // namespace quorvan::tool
