// Letters on a picture.
#pragma once

#include <cairo.h>

#include <memory>

#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

/// Paints texts with pango where the build has it: letters are shaped and joined, each is taken
/// from a font that has it, those of Hebrew and Arabic run from right to left, tabs are as wide as
/// four blanks. Without, letter by letter from one font, in the order of the text.
///
/// A text is painted no wider than the layout of the sheet reckons with: a wider one is narrowed.
class TextPainter {
 public:
  /// For texts on that context, which outlives the painter and whose y points downwards.
  explicit TextPainter(cairo_t* context);
  ~TextPainter();
  TextPainter(const TextPainter&) = delete;
  TextPainter& operator=(const TextPainter&) = delete;
  TextPainter(TextPainter&&) = delete;
  TextPainter& operator=(TextPainter&&) = delete;

  /// With the point of its base line (`baseOf`) at the origin of the context; around it the paper
  /// is blanked where the style says so. A text without a height is none.
  void paint(const Lettering& text, const Style& style);

 private:
  struct Fonts;

  cairo_t* m_context;
  std::unique_ptr<Fonts> m_fonts;
};

}  // namespace quorvan::tool
