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

/// Gives memory that is free back to the system. A program that writes or reads one drawing has to
/// get its memory first; no library shall live off what the one before left behind.
void giveFreeMemoryBack();

/// From now on seconds() gives processor time, which other programs on the machine disturb less.
void measureProcessorTime();

inline double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 != 0 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

/// Bytes of memory that `work` needs at its peak beyond what the process holds before; measured in
/// a child process. Negative when the system does not tell.
double peakBytes(const std::function<void()>& work);

}  // namespace bench
