// How long the bars of a series are.
#pragma once

#include <vector>

#include <tools/model/bar.h>
#include <tools/model/repartition.h>

namespace quorvan::tool {

/// Whether the distances of the series are those of the two ends of its bars. Those of straight
/// bars seen in view 1 are the cover above and below, those of links are of their outline.
bool measuresEnds(const Repartition& series);

/// From end to end, without hooks, one value a bar of the series; empty where the distances say
/// nothing of it. The distances lie across the base line, the bars along the repeated bar:
/// one at an angle to the line's normal is longer than its distances are apart. A repeated bar that
/// runs along the line itself was drawn in another view; the distances then count as they stand.
std::vector<double> seriesSpans(const Repartition& series, const Bar& repeated);

/// The same; empty too where all of them are alike, none so much longer than another.
std::vector<double> differingSpans(const Repartition& series, const Bar& repeated, double least);

/// The straight bar with its last end so far from the first.
Bar withSpan(const Bar& bar, double span);

}  // namespace quorvan::tool
