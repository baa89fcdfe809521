#include <tools/draw/writers/pdf_texts.h>

#include <pango/pangocairo.h>
#include <qpdf/QUtil.hh>

#include <algorithm>
#include <cmath>
#include <string_view>

#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr double kOfLetters = 1000.0;
constexpr double kUnitsOfSize = kLayoutSize * PANGO_SCALE;

// Puts letters one behind the other, by the ways between where one ends and the next begins.
class LetterRow {
 public:
  void setFont(std::size_t font) {
    const std::string wanted = "/F" + std::to_string(font) + " 1 Tf";
    if (m_font != wanted) {
      operate(wanted);
      m_font = wanted;
    }
  }

  void add(hb_codepoint_t glyph, double x, double y, double advance) {
    setRise(std::round(y * kOfLetters) / kOfLetters);
    if (!m_isArray) {
      m_text += '[';
      m_isArray = true;
    }
    // Backwards, in thousandths.
    if (const double back = std::round((m_end - x) * kOfLetters); back != 0.0) {
      endString();
      appendRounded(m_text, back, 0);
      m_end -= back / kOfLetters;
    }
    appendPdfLetter(m_string, glyph);
    m_end += advance;
  }

  // An operator of its own, with what goes before it.
  void operate(std::string_view text) {
    endArray();
    m_text.append(m_text.empty() ? "" : " ").append(text).append(1, '\n');
  }

  std::string take() {
    setRise(0.0);
    endArray();
    return std::move(m_text);
  }

 private:
  void setRise(double rise) {
    if (m_rise != rise) {
      operate(rounded(rise, 3) + " Ts");
      m_rise = rise;
    }
  }
  void endString() {
    if (!m_string.empty()) {
      m_text.append(1, '<').append(QUtil::hex_encode(m_string)).append(1, '>');
      m_string.clear();
    }
  }
  void endArray() {
    endString();
    m_text += m_isArray ? "]TJ\n" : "";
    m_isArray = false;
  }

  std::string m_text;
  std::string m_string;  // the letters that stand one behind the other by themselves
  std::string m_font;
  double m_end = 0.0;  // of the letter before
  double m_rise = 0.0;
  bool m_isArray = false;
};

// Letters that together say a part of the text.
struct Cluster {
  int first;  // among the letters of its run
  int end;
  std::string_view text;
};

std::vector<Cluster> clustersOf(const PangoGlyphItem& run, std::string_view line) {
  const PangoGlyphString& glyphs = *run.glyphs;
  const std::string_view text = line.substr(static_cast<std::size_t>(run.item->offset),
                                            static_cast<std::size_t>(run.item->length));
  std::vector<Cluster> clusters;
  for (int i = 0; i < glyphs.num_glyphs; ++i) {
    if (i == 0 || glyphs.log_clusters[i] != glyphs.log_clusters[i - 1]) {
      clusters.push_back({i, i, {}});
    }
    clusters.back().end = i + 1;
  }
  const auto begin = [&](const Cluster& one) { return glyphs.log_clusters[one.first]; };
  for (std::size_t i = 0; i < clusters.size(); ++i) {
    // Its text ends where that of the cluster behind it begins, which from right to left is drawn
    // before it.
    int end = run.item->length;
    for (const std::size_t beside : {i - 1, i + 1}) {
      if (beside < clusters.size() && begin(clusters[beside]) > begin(clusters[i])) {
        end = std::min(end, begin(clusters[beside]));
      }
    }
    clusters[i].text = text.substr(static_cast<std::size_t>(begin(clusters[i])),
                                   static_cast<std::size_t>(end - begin(clusters[i])));
  }
  return clusters;
}

// Lays out one line, run after run from the left.
class LineWriter {
 public:
  LineWriter(PdfFonts& fonts, std::string_view line) : m_fonts(fonts), m_line(line) {}

  bool add(const PangoGlyphItem& run) {
    const auto font = m_fonts.numberOf(run.item->analysis.font);
    const PangoGlyphInfo* const glyphs = run.glyphs->glyphs;
    for (const Cluster& cluster : clustersOf(run, m_line)) {
      int inked = 0;
      for (int i = cluster.first; i < cluster.end; ++i) {
        const PangoGlyph glyph = glyphs[i].glyph;
        const bool isInked = glyph != PANGO_GLYPH_EMPTY;
        if (isInked && (!font || (glyph & PANGO_GLYPH_UNKNOWN_FLAG) != 0)) {
          return false;
        }
        inked += isInked ? 1 : 0;
      }
      if (inked > 0) {
        add(*font, cluster, glyphs, inked == 1);
      } else {
        advance(cluster, glyphs);
      }
    }
    return true;
  }

  PdfText take() { return {0.0, m_letters.take(), m_outline.take()}; }

 private:
  void add(std::size_t font, const Cluster& cluster, const PangoGlyphInfo* glyphs, bool isOne) {
    m_letters.setFont(font);
    m_outline.setFont(font);
    const auto inked = std::find_if(glyphs + cluster.first, glyphs + cluster.end,
                                    [](const auto& one) { return one.glyph != PANGO_GLYPH_EMPTY; });
    m_fonts.use(font, inked->glyph);
    // What the letters do not say by themselves is said beside them.
    const bool isSaid = isOne && m_fonts.say(font, inked->glyph, cluster.text);
    if (!isSaid) {
      m_letters.operate("/Span<</ActualText<" +
                        QUtil::hex_encode(QUtil::utf8_to_utf16(std::string(cluster.text))) +
                        ">>>BDC");
    }
    for (int i = cluster.first; i < cluster.end; ++i) {
      const PangoGlyphInfo& one = glyphs[i];
      if (one.glyph != PANGO_GLYPH_EMPTY) {
        const double advance = m_fonts.use(font, one.glyph);
        const double x = (m_at + one.geometry.x_offset) / kUnitsOfSize;
        const double y = -one.geometry.y_offset / kUnitsOfSize;
        m_letters.add(one.glyph, x, y, advance);
        m_outline.add(one.glyph, x, y, advance);
      }
      m_at += one.geometry.width;
    }
    if (!isSaid) {
      m_letters.operate("EMC");
    }
  }

  void advance(const Cluster& cluster, const PangoGlyphInfo* glyphs) {
    for (int i = cluster.first; i < cluster.end; ++i) {
      m_at += glyphs[i].geometry.width;
    }
  }

  PdfFonts& m_fonts;
  std::string_view m_line;
  LetterRow m_letters;
  LetterRow m_outline;
  double m_at = 0.0;  // in units of the layout
};

Owned<PangoLayout> layoutOfPdf() {
  const Owned<PangoContext> state(pango_font_map_create_context(pango_cairo_font_map_get_default()),
                                  g_object_unref);
  return newLayout(state.get());
}

}  // namespace

PdfTexts::PdfTexts() : m_layout(layoutOfPdf()) {}

bool PdfTexts::add(const std::string& text) {
  const auto [at, isNew] = m_texts.try_emplace(text);
  if (!isNew) {
    return true;
  }
  const std::string line = onOneLine(text);
  pango_layout_set_text(m_layout.get(), line.data(), static_cast<int>(line.size()));
  PangoRectangle logical;
  pango_layout_get_extents(m_layout.get(), nullptr, &logical);
  // What is no UTF-8 is laid out as something else.
  LineWriter writer(m_fonts, pango_layout_get_text(m_layout.get()));
  const PangoLayoutLine* const laid = pango_layout_get_line_readonly(m_layout.get(), 0);
  for (const GSList* run = laid == nullptr ? nullptr : laid->runs; run != nullptr;
       run = run->next) {
    if (!writer.add(*static_cast<const PangoGlyphItem*>(run->data))) {
      return false;
    }
  }
  at->second = writer.take();
  at->second.width = logical.width / kUnitsOfSize;
  return true;
}

}  // namespace quorvan::tool
