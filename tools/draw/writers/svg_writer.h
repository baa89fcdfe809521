// A scene as SVG.
#pragma once

#include <ostream>

#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

/// What goes with the picture.
struct SvgOptions {
  bool isEmbedded = false;  // in a page, which gives it its size; else a document of its own
};

/// Writes one group for each layer, named by its "data-layer"; what belongs to an element has its
/// place in the file under "data-e". Units are millimetres of paper, y downwards.
void writeSvg(const Scene& scene, const SvgOptions& options, std::ostream& out);

/// The text with what XML takes for markup written out, and U+FFFD for what it cannot hold.
std::string xmlText(std::string_view text);

}  // namespace quorvan::tool
