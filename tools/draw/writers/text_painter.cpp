#include <tools/draw/writers/text_painter.h>

#ifdef QUORVAN_HAS_PANGO
#include <pango/pangocairo.h>
#endif

#include <string>

#include <tools/draw/scene/lettering_metrics.h>
#include <tools/draw/writers/text_layout.h>

namespace quorvan::tool {

namespace {

// Makes lines of the context's path, none shorter than that but the last of an outline.
void thinPath(cairo_t* context, double least) {
  const std::unique_ptr<cairo_path_t, decltype(&cairo_path_destroy)> path(
      cairo_copy_path_flat(context), cairo_path_destroy);
  cairo_new_path(context);
  PlanePoint last;
  for (int i = 0; i < path->num_data; i += path->data[i].header.length) {
    const cairo_path_data_t* const step = path->data + i;
    if (step->header.type == CAIRO_PATH_CLOSE_PATH) {
      cairo_close_path(context);
      continue;
    }
    const PlanePoint to{step[1].point.x, step[1].point.y};
    if (step->header.type == CAIRO_PATH_MOVE_TO) {
      cairo_move_to(context, to.x, to.y);
    } else if (lengthOf(to - last) >= least) {
      cairo_line_to(context, to.x, to.y);
    } else {
      continue;
    }
    last = to;
  }
}

// Blanks the paper around the letters that are the context's path.
void blankAround(cairo_t* context, double halo) {
  constexpr double kPathShare = 0.3;  // a finer outline of letters shows nothing more
  thinPath(context, kPathShare * halo);
  cairo_set_source_rgb(context, 1.0, 1.0, 1.0);
  cairo_set_dash(context, nullptr, 0, 0.0);
  cairo_set_line_width(context, halo);
  cairo_stroke(context);
}

void setInk(cairo_t* context, const Color& color) {
  constexpr double kMost = 255.0;
  cairo_set_source_rgb(context, color.red / kMost, color.green / kMost, color.blue / kMost);
}

}  // namespace

#ifdef QUORVAN_HAS_PANGO

struct TextPainter::Fonts {
  Owned<PangoLayout> layout;
};

TextPainter::TextPainter(cairo_t* context) : m_context(context) {
  const Owned<PangoContext> state(pango_cairo_create_context(context), g_object_unref);
  m_fonts = std::make_unique<Fonts>(Fonts{newLayout(state.get())});
}

void TextPainter::paint(const Lettering& text, const Style& style) {
  const double size = fontSizeOf(text.height);
  if (text.text.empty() || !(size > 0.0)) {
    return;
  }
  PangoLayout* const layout = m_fonts->layout.get();
  const std::string line = onOneLine(text.text);
  pango_layout_set_text(layout, line.data(), static_cast<int>(line.size()));
  PangoRectangle logical;
  pango_layout_get_extents(layout, nullptr, &logical);
  const double toSize = size / kLayoutSize;
  const double width = static_cast<double>(logical.width) / PANGO_SCALE * toSize;
  const double narrowed = narrowing(text, width);
  const double base = static_cast<double>(pango_layout_get_baseline(layout)) / PANGO_SCALE;
  cairo_save(m_context);
  cairo_scale(m_context, toSize * narrowed, toSize);
  cairo_translate(m_context, -shareBefore(text.alignX) * width / toSize, -base);
  if (style.isOnPaper) {
    cairo_new_path(m_context);
    cairo_move_to(m_context, 0.0, 0.0);
    pango_cairo_layout_path(m_context, layout);
    blankAround(m_context, haloOf(text.height) / toSize);
  }
  setInk(m_context, style.color);
  cairo_move_to(m_context, 0.0, 0.0);
  pango_cairo_show_layout(m_context, layout);
  cairo_restore(m_context);
}

#else

struct TextPainter::Fonts {};

TextPainter::TextPainter(cairo_t* context) : m_context(context) {
  cairo_select_font_face(m_context, "Arial", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
}

void TextPainter::paint(const Lettering& text, const Style& style) {
  if (text.text.empty() || !(text.height > 0.0)) {
    return;
  }
  // The font has no letter for a tab.
  std::string line;
  for (const char unit : onOneLine(text.text)) {
    line += unit == '\t' ? std::string(4, ' ') : std::string(1, unit);
  }
  cairo_save(m_context);
  cairo_set_font_size(m_context, fontSizeOf(text.height));
  cairo_text_extents_t extents;
  cairo_text_extents(m_context, line.c_str(), &extents);
  cairo_scale(m_context, narrowing(text, extents.x_advance), 1.0);
  const double begin = -shareBefore(text.alignX) * extents.x_advance;
  if (style.isOnPaper) {
    cairo_new_path(m_context);
    cairo_move_to(m_context, begin, 0.0);
    cairo_text_path(m_context, line.c_str());
    blankAround(m_context, haloOf(text.height));
  }
  setInk(m_context, style.color);
  cairo_move_to(m_context, begin, 0.0);
  cairo_show_text(m_context, line.c_str());
  cairo_restore(m_context);
}

#endif

TextPainter::~TextPainter() = default;

}  // namespace quorvan::tool
