// A step whose work is counted by measure.sh, which runs the program under an instruction counter.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace quorvan::test {

/// Takes the step, and says on standard output that it was taken: what it worked on, which step,
/// and of what size that was. A program takes each step at two sizes, the second four times the
/// first.
void takeMeasuredStep(const std::string& shape, const std::string& step, std::size_t size,
                      const std::function<void()>& action);

}  // namespace quorvan::test
