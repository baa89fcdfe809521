// The fonts of a PDF: what is used of each is put into it.
#pragma once

#include <hb.h>
#include <pango/pango.h>
#include <qpdf/qpdf-c.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <tools/draw/writers/text_layout.h>

namespace quorvan::tool {

/// Puts a letter behind others, as strings of a page name it: two bytes.
void appendPdfLetter(std::string& bytes, hb_codepoint_t glyph);

class PdfFonts {
 public:
  /// The number of a font, from 0; nothing for one whose letters are not plain outlines of
  /// TrueType, which this cannot put into a file.
  std::optional<std::size_t> numberOf(PangoFont* font);

  /// Takes note that a letter is used; gives how far it advances, in sizes of the font.
  double use(std::size_t font, hb_codepoint_t glyph);

  /// Takes note of what a letter says, unless it says another text already; gives whether it says
  /// this one.
  bool say(std::size_t font, hb_codepoint_t glyph, std::string_view text);

  /// Puts them into the file; gives a dictionary of them, by the names F0, F1 and so on.
  qpdf_oh putInto(qpdf_data file) const;

 private:
  struct Glyph {
    double advance = 0.0;
    std::string text;
  };
  struct Font {
    Owned<PangoFont> pango;
    std::unique_ptr<hb_font_t, decltype(&hb_font_destroy)>
        sized;  // its units are those of the font
    unsigned int unitsOfSize;
    std::map<hb_codepoint_t, Glyph> glyphs;

    [[nodiscard]] hb_face_t* face() const { return hb_font_get_face(sized.get()); }
  };

  static qpdf_oh descriptorOf(const Font& font, qpdf_oh name, qpdf_data file);
  static qpdf_oh put(const Font& font, std::size_t number, qpdf_data file);

  std::vector<Font> m_fonts;
};

}  // namespace quorvan::tool
