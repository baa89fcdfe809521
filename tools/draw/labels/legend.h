// What the lines of the sheet stand for, and a scale to measure by.
#pragma once

#include <tools/draw/scene/draw_options.h>
#include <tools/draw/shapes/shape_sink.h>

namespace quorvan::tool {

/// A row above the title block: a sample of each kind that was drawn, and a scale bar.
void drawLegend(const DrawOptions& options, ShapeSink& sink);

}  // namespace quorvan::tool
