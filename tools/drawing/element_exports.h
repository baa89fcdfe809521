// Files elements through the flat functions.
#pragma once

#include <tools/drawing/drawing_file.h>

namespace quorvan::tool {

/// Hands the element to the flat function of its class. A repartition, for which there is none,
/// files itself through its element class, at once.
void exportElement(const ElementInput& element);

/// Pushes the frames of a series.
void pushSeries(const std::vector<FrameInput>& frames);

/// Files the series that were pushed, which otherwise waits for the end of the filing.
void fileSeries();

}  // namespace quorvan::tool
