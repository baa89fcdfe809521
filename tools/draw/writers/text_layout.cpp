#include <tools/draw/writers/text_layout.h>

#include <algorithm>

#include <tools/draw/scene/text_width.h>

#ifdef QUORVAN_HAS_PANGO
#include <pango/pangocairo.h>
#endif

namespace quorvan::tool {

double shareBefore(AlignX align) noexcept {
  return align == AlignX::kCentre ? 0.5 : align == AlignX::kRight ? 1.0 : 0.0;
}

double narrowing(const Lettering& text, double width) {
  const double most = textWidth(text.text, text.height);
  return width > most && most > 0.0 ? most / width : 1.0;
}

std::string onOneLine(std::string line) {
  constexpr char kDelete = 0x7F;
  std::ranges::replace_if(
      line, [](char unit) { return unit == '\n' || unit == '\r'; }, ' ');
  std::erase_if(line, [](char unit) {
    return (static_cast<unsigned char>(unit) < static_cast<unsigned char>(' ') && unit != '\t') ||
           unit == kDelete;
  });
  return line;
}

#ifdef QUORVAN_HAS_PANGO

Owned<PangoLayout> newLayout(PangoContext* context) {
  constexpr int kTabWidth = 127;  // four blanks
  const std::unique_ptr<cairo_font_options_t, decltype(&cairo_font_options_destroy)> options(
      cairo_font_options_create(), cairo_font_options_destroy);
  cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
  pango_cairo_context_set_font_options(context, options.get());
  Owned<PangoLayout> layout(pango_layout_new(context), g_object_unref);
  const std::unique_ptr<PangoFontDescription, decltype(&pango_font_description_free)> font(
      pango_font_description_from_string("Arial, Helvetica, Liberation Sans, DejaVu Sans, Sans"),
      pango_font_description_free);
  pango_font_description_set_absolute_size(font.get(), kLayoutSize * PANGO_SCALE);
  pango_layout_set_font_description(layout.get(), font.get());
  pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
  const std::unique_ptr<PangoTabArray, decltype(&pango_tab_array_free)> tabs(
      pango_tab_array_new_with_positions(1, FALSE, PANGO_TAB_LEFT, kTabWidth * PANGO_SCALE),
      pango_tab_array_free);
  pango_layout_set_tabs(layout.get(), tabs.get());
  return layout;
}

#endif

}  // namespace quorvan::tool
