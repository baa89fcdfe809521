// Texts as lines of letters that are laid out.
#pragma once

#include <memory>
#include <string>

#include <tools/draw/scene/scene.h>

#ifdef QUORVAN_HAS_PANGO
#include <pango/pango.h>
#endif

namespace quorvan::tool {

/// How far a text lies before its point, as a share of its width.
double shareBefore(AlignX align) noexcept;

/// How wide a text is painted that would be so wide by itself, as a share of that: no wider than
/// the layout of the sheet reckons with.
double narrowing(const Lettering& text, double width);

/// A text is one line: what would begin another is a blank, other control characters are nothing.
std::string onOneLine(std::string line);

#ifdef QUORVAN_HAS_PANGO

template <class Object>
using Owned = std::unique_ptr<Object, decltype(&g_object_unref)>;

/// Letters are laid out once at this size and drawn at any: their places are not rounded to points
/// of the picture.
inline constexpr double kLayoutSize = 100.0;

/// Lays out one line in the fonts of a drawing. The context is changed for that.
Owned<PangoLayout> newLayout(PangoContext* context);

#endif

}  // namespace quorvan::tool
