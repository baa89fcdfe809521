// Bars of several lengths that belong together.
#pragma once

#include <cstddef>
#include <vector>

#include <tools/schedule/bar_list.h>

namespace quorvan::tool::bvbs {

/// Where a row stands among those of its series.
struct SeriesPlace {
  int group = 0;   // from 1; 0 for a row whose series, if any, have one length
  int member = 0;  // from 1 within the mark
};

/// One a row. Rows that share a series of varying length are one group, and so are groups that
/// share a row.
std::vector<SeriesPlace> seriesPlaces(const std::vector<BarRow>& rows);

}  // namespace quorvan::tool::bvbs
