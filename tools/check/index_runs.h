// The indexes that were seen.
#pragma once

#include <cstdint>
#include <map>

namespace quorvan::tool {

/// A set of numbers that mostly follow each other: it holds where each run begins and ends.
class IndexRuns {
 public:
  /// False when it is there already.
  bool add(std::int64_t index);

 private:
  std::map<std::int64_t, std::int64_t> m_runs;  // the last number of each by its first
};

}  // namespace quorvan::tool
