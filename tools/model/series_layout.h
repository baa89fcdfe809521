// Where the bars of a repartition lie.
#pragma once

#include <vector>

#include <tools/model/bar.h>
#include <tools/model/repartition.h>

namespace quorvan::tool {

/// One bar of a series, from its first point to its second.
struct SeriesBar {
  Coordinates first;
  Coordinates last;
};

/// A repartition holds its bars by their distances from a base line, which runs along x or y
/// through the middle of the first bar, and by their steps along that line, whatever angle the bars
/// have. Their direction follows from where the last bar crosses the base line; where all bars
/// begin at the same distance from it, it is that of the repeated bar, or square to the base line.
struct SeriesLayout {
  std::vector<SeriesBar> bars;
  /// Where the bars cross the line that runs square to them through the middle of the first.
  std::vector<Coordinates> crossings;
  /// From each bar to the next, square to the bars.
  std::vector<double> spacings;
};

/// The layout in the plane of x and y, of `most` bars at the most. `repeated` is the bar that the
/// series repeats, or null. Empty for a series without a line of its own.
SeriesLayout layOut(const Repartition& series, const Bar* repeated, std::size_t most = 100000);

/// The spacings to write beside the series: square to the bars, or as filed for a series without a
/// line of its own.
std::vector<double> statedSpacings(const Repartition& series, const Bar* repeated);

}  // namespace quorvan::tool
