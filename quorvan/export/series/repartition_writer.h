// Writing one series of pushed frames as a repartition. Not installed.
#pragma once

#include <quorvan/export/series/held_frames.h>

namespace quorvan {

/// Writes the series, which holds at least one frame, into the open file; nothing while filing is
/// stopped. The frames are put in the order of the series. Raises std::out_of_range for a series
/// of one frame unless it is a straight-bar series seen in view 1, and what the search for the
/// repeated bar raises.
void writeRepartition(FrameGroup& group);

/// Groups the frames that are held back and writes each group as a repartition. What a group
/// raises leaves it and the later ones held, for the next call.
void writeHeldSeries();

}  // namespace quorvan
