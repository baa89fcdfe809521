// The test whether a hidden bar is already in the drawing: how its cost grows.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

struct HiddenBarTimes {
  double searchSeconds = 0;  // all searches, without filing the patterns
  double exportSeconds = 0;  // the flat function from start to end, scratch file included
};

/// Files `bars` hidden bars of which every second repeats an earlier one, beside `others` lines.
/// Scratch files are written to `folder`.
HiddenBarTimes measureHiddenBars(std::size_t bars, std::size_t others, const std::string& folder);

/// Seconds for the same searches through a hash set of the bars' values: the limit.
double measureHashSet(std::size_t bars);

}  // namespace bench
