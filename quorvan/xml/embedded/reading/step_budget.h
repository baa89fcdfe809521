// What declarations may make the parser do, in proportion to the size of their file.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

#include <quorvan/xml/embedded/reading/limits.h>

namespace quorvan::embedded {

class StepBudget {
 public:
  explicit StepBudget(std::uint64_t fileSize) noexcept
      : m_left(kFreeSteps +
               kStepsPerByte * std::min(fileSize, std::numeric_limits<std::uint64_t>::max() /
                                                      (2 * kStepsPerByte))) {}

  /// False when the steps are more than are left; then there are none left.
  bool spend(std::uint64_t steps) noexcept {
    const bool isEnough = steps <= m_left;
    m_left = isEnough ? m_left - steps : 0;
    return isEnough;
  }

 private:
  std::uint64_t m_left;
};

}  // namespace quorvan::embedded
