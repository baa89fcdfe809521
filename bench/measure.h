// Time, memory and medians.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace bench {

/// Seconds that `work` takes: those that pass, or the processor time of this process.
double seconds(const std::function<void()>& work);

/// The same in a process of its own, a child of this one: it has to get its memory first, as a
/// program has that writes or reads one drawing. Raises std::runtime_error when that fails.
double secondsInFreshProcess(const std::function<void()>& work);

/// From now on seconds() gives processor time, which other programs on the machine disturb less.
void measureProcessorTime();

inline double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 != 0 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

/// What several runs took, in seconds.
struct Timing {
  double median = 0;
  double best = 0;

  /// How steady they were: 1 when all took the same.
  [[nodiscard]] double spread() const { return median / best; }
};

/// Of one run and more.
inline Timing timing(const std::vector<double>& runs) {
  return {median(runs), *std::min_element(runs.begin(), runs.end())};
}

/// Bytes of memory that `work` needs at its peak beyond what the process holds before; measured in
/// a child process. Negative when the system does not tell.
double peakBytes(const std::function<void()>& work);

}  // namespace bench
