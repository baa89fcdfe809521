// Where the bars of a series lie: positions, distances, axis and base segment. Not installed.
#pragma once

#include <quorvan/elements/repartition.h>
#include <quorvan/export/series/held_frames.h>

namespace quorvan {

/// Sets the repartition's geometry from the frames of a series and puts the frames of a
/// straight-bar series in order. Raises std::out_of_range when the series needs two frames to
/// have a direction and holds one.
void layOutRepartition(FrameGroup& group, CKtZantoRepartition& repartition);

}  // namespace quorvan
