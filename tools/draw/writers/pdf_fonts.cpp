#include <tools/draw/writers/pdf_fonts.h>

#include <hb-ot.h>
#include <hb-subset.h>
#include <qpdf/QUtil.hh>

#include <algorithm>
#include <array>
#include <cmath>

#include <tools/console/console.h>
#include <tools/draw/writers/pdf_objects.h>

namespace quorvan::tool {

namespace {

constexpr double kOfFont = 1000.0;  // in which a PDF counts a size of a font
constexpr int kWidthDecimals = 3;   // of one of these
constexpr unsigned kByte = 8;       // bits

using Blob = std::unique_ptr<hb_blob_t, decltype(&hb_blob_destroy)>;

std::string_view bytesOf(hb_blob_t* blob) {
  unsigned int size = 0;
  const char* const data = hb_blob_get_data(blob, &size);
  return {data, size};
}

bool isPlain(hb_face_t* face) {
  const Blob outlines(hb_face_reference_table(face, HB_TAG('g', 'l', 'y', 'f')), hb_blob_destroy);
  return hb_blob_get_length(outlines.get()) > 0 && !hb_ot_var_has_data(face) &&
         !hb_ot_color_has_png(face) && !hb_ot_color_has_layers(face) && !hb_ot_color_has_svg(face);
}

// The font with the outlines of these letters alone, each with the number that it has.
template <class Glyphs>
Blob subsetOf(hb_face_t* face, const Glyphs& glyphs) {
  const std::unique_ptr<hb_subset_input_t, decltype(&hb_subset_input_destroy)> input(
      hb_subset_input_create_or_fail(), hb_subset_input_destroy);
  for (const auto& [glyph, known] : glyphs) {
    hb_set_add(hb_subset_input_glyph_set(input.get()), glyph);
  }
  hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_RETAIN_GIDS);
  // What only serves to find letters and to place them has been used by now.
  hb_set_t* const dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
  for (const char* const table :
       {"GSUB", "GPOS", "GDEF", "BASE", "JSTF", "MATH", "kern", "name", "post", "OS/2", "cmap",
        "DSIG", "FFTM", "gasp", "hdmx", "VDMX", "LTSH", "PCLT", "vhea", "vmtx", "meta"}) {
    hb_set_add(dropped, hb_tag_from_string(table, -1));
  }
  const std::unique_ptr<hb_face_t, decltype(&hb_face_destroy)> subset(
      hb_subset_or_fail(face, input.get()), hb_face_destroy);
  if (subset == nullptr) {
    throw Failure("the picture cannot be drawn: a font cannot be put into it");
  }
  return {hb_face_reference_blob(subset.get()), hb_blob_destroy};
}

// "AAAAAB+LiberationSans": a name of its own for what is used of the font.
std::string nameOf(hb_face_t* face, std::size_t number) {
  constexpr std::size_t kLetters = 26;
  std::string name = "AAAAAA+";
  for (std::size_t at = 6; at > 0; --at, number /= kLetters) {
    name[at - 1] = static_cast<char>('A' + number % kLetters);
  }
  std::array<char, 128> text{};
  auto size = static_cast<unsigned int>(text.size());
  hb_ot_name_get_utf8(face, HB_OT_NAME_ID_POSTSCRIPT_NAME, HB_LANGUAGE_INVALID, &size, text.data());
  for (const char unit : std::string_view(text.data(), std::min<std::size_t>(size, text.size()))) {
    const bool isPlainUnit = (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z') ||
                             (unit >= '0' && unit <= '9') || unit == '-';
    name += isPlainUnit ? std::string(1, unit) : std::string();
  }
  return name;
}

// The box around all letters of the font, in its units.
std::array<double, 4> boxOfLetters(hb_face_t* face) {
  constexpr std::size_t kFirst = 36;  // of its four numbers in the table
  const Blob head(hb_face_reference_table(face, HB_TAG('h', 'e', 'a', 'd')), hb_blob_destroy);
  const std::string_view bytes = bytesOf(head.get());
  std::array<double, 4> box{};
  for (std::size_t i = 0; i < box.size() && kFirst + 2 * i + 1 < bytes.size(); ++i) {
    const unsigned high = static_cast<unsigned char>(bytes[kFirst + 2 * i]);
    const unsigned low = static_cast<unsigned char>(bytes[kFirst + 2 * i + 1]);
    box[i] = static_cast<std::int16_t>(static_cast<std::uint16_t>(high << kByte | low));
  }
  return box;
}

// What the letters say, for who searches or copies.
template <class Glyphs>
std::string unicodeMap(const Glyphs& glyphs) {
  constexpr std::size_t kMostOfBlock = 100;
  constexpr std::size_t kMarkOfUtf16 = 2;  // bytes
  std::vector<std::string> lines;
  for (const auto& [glyph, known] : glyphs) {
    if (!known.text.empty()) {
      std::string letter;
      appendPdfLetter(letter, glyph);
      lines.push_back("<" + QUtil::hex_encode(letter) + "><" +
                      QUtil::hex_encode(QUtil::utf8_to_utf16(known.text).substr(kMarkOfUtf16)) +
                      ">\n");
    }
  }
  std::string map =
      "/CIDInit/ProcSet findresource begin\n12 dict begin\nbegincmap\n"
      "/CIDSystemInfo<</Registry(Adobe)/Ordering(UCS)/Supplement 0>>def\n"
      "/CMapName/Adobe-Identity-UCS def\n/CMapType 2 def\n"
      "1 begincodespacerange\n<0000><FFFF>\nendcodespacerange\n";
  for (std::size_t at = 0; at < lines.size(); at += kMostOfBlock) {
    const std::size_t end = std::min(lines.size(), at + kMostOfBlock);
    map += std::to_string(end - at) + " beginbfchar\n";
    for (std::size_t i = at; i < end; ++i) {
      map += lines[i];
    }
    map += "endbfchar\n";
  }
  return map + "endcmap\nCMapName currentdict/CMap defineresource pop\nend\nend\n";
}

// How far each letter advances: the first of a row of them, then the widths of all in it.
template <class Glyphs>
qpdf_oh widthsOf(const Glyphs& glyphs, qpdf_data file) {
  const qpdf_oh widths = qpdf_oh_new_array(file);
  qpdf_oh row = 0;
  std::optional<hb_codepoint_t> next;
  for (const auto& [glyph, known] : glyphs) {
    if (glyph != next) {
      row = qpdf_oh_new_array(file);
      qpdf_oh_append_item(file, widths, qpdf_oh_new_integer(file, glyph));
      qpdf_oh_append_item(file, widths, row);
    }
    qpdf_oh_append_item(
        file, row, qpdf_oh_new_real_from_double(file, known.advance * kOfFont, kWidthDecimals));
    next = glyph + 1;
  }
  return widths;
}

}  // namespace

void appendPdfLetter(std::string& bytes, hb_codepoint_t glyph) {
  constexpr hb_codepoint_t kLowest = 0xFF;
  bytes += static_cast<char>(glyph >> kByte & kLowest);
  bytes += static_cast<char>(glyph & kLowest);
}

std::optional<std::size_t> PdfFonts::numberOf(PangoFont* font) {
  const auto known =
      std::ranges::find(m_fonts, font, [](const Font& one) { return one.pango.get(); });
  if (known != m_fonts.end()) {
    return static_cast<std::size_t>(known - m_fonts.begin());
  }
  hb_face_t* const face = hb_font_get_face(pango_font_get_hb_font(font));
  if (!isPlain(face)) {
    return std::nullopt;
  }
  m_fonts.push_back({{PANGO_FONT(g_object_ref(font)), g_object_unref},
                     {hb_font_create(face), hb_font_destroy},
                     std::max(1U, hb_face_get_upem(face)),
                     {}});
  return m_fonts.size() - 1;
}

double PdfFonts::use(std::size_t font, hb_codepoint_t glyph) {
  Font& used = m_fonts[font];
  const auto [at, isNew] = used.glyphs.try_emplace(glyph);
  if (isNew) {
    at->second.advance = static_cast<double>(hb_font_get_glyph_h_advance(used.sized.get(), glyph)) /
                         used.unitsOfSize;
  }
  return at->second.advance;
}

bool PdfFonts::say(std::size_t font, hb_codepoint_t glyph, std::string_view text) {
  std::string& said = m_fonts[font].glyphs[glyph].text;
  if (said.empty()) {
    said = text;
  }
  return said == text;
}

qpdf_oh PdfFonts::putInto(qpdf_data file) const {
  const qpdf_oh fonts = qpdf_oh_new_dictionary(file);
  for (std::size_t i = 0; i < m_fonts.size(); ++i) {
    qpdf_oh_replace_key(file, fonts, ("/F" + std::to_string(i)).c_str(), put(m_fonts[i], i, file));
  }
  return fonts;
}

qpdf_oh PdfFonts::put(const Font& font, std::size_t number, qpdf_data file) {
  const qpdf_oh name = pdfName(file, nameOf(font.face(), number));
  const qpdf_oh letters = pdfDictionary(
      file,
      "<</Type/Font/Subtype/CIDFontType2/DW 0/CIDToGIDMap/Identity"
      "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>>>",
      {{"/BaseFont", name},
       {"/W", widthsOf(font.glyphs, file)},
       {"/FontDescriptor", qpdf_make_indirect_object(file, descriptorOf(font, name, file))}});
  return qpdf_make_indirect_object(
      file, pdfDictionary(file, "<</Type/Font/Subtype/Type0/Encoding/Identity-H>>",
                          {{"/BaseFont", name},
                           {"/DescendantFonts",
                            qpdf_oh_wrap_in_array(file, qpdf_make_indirect_object(file, letters))},
                           {"/ToUnicode", pdfStream(file, unicodeMap(font.glyphs))}}));
}

qpdf_oh PdfFonts::descriptorOf(const Font& font, qpdf_oh name, qpdf_data file) {
  const auto thousandths = [&font, file](double units) {
    return qpdf_oh_new_integer(file, std::llround(units * kOfFont / font.unitsOfSize));
  };
  hb_font_extents_t extents{};
  hb_font_get_h_extents(font.sized.get(), &extents);
  hb_position_t capitals = 0;
  hb_ot_metrics_get_position_with_fallback(font.sized.get(), HB_OT_METRICS_TAG_CAP_HEIGHT,
                                           &capitals);
  const qpdf_oh box = qpdf_oh_new_array(file);
  for (const double side : boxOfLetters(font.face())) {
    qpdf_oh_append_item(file, box, thousandths(side));
  }
  const Blob outlines = subsetOf(font.face(), font.glyphs);
  const std::string_view bytes = bytesOf(outlines.get());
  const qpdf_oh program = pdfStream(file, bytes);
  qpdf_oh_replace_key(file, qpdf_oh_get_dict(file, program), "/Length1",
                      qpdf_oh_new_integer(file, static_cast<std::int64_t>(bytes.size())));
  return pdfDictionary(file, "<</Type/FontDescriptor/Flags 4/ItalicAngle 0/StemV 80>>",
                       {{"/FontName", name},
                        {"/FontBBox", box},
                        {"/Ascent", thousandths(extents.ascender)},
                        {"/Descent", thousandths(extents.descender)},
                        {"/CapHeight", thousandths(capitals)},
                        {"/FontFile2", program}});
}

}  // namespace quorvan::tool
