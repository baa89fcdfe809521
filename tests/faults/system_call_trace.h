// What a piece of code asks of the system, call by call.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quorvan::test {

struct SystemCall {
  long number = 0;
  std::optional<std::string> path;  // of the calls that take one
};

struct SystemCallTrace {
  bool isComplete = false;  // the process could be watched, and ended by itself with status 0
  std::vector<SystemCall> calls;
};

/// Runs the action in a process of its own and watches every call that it makes into the kernel,
/// whoever makes it: the library, what it is linked with, the run-time.
SystemCallTrace systemCallsOf(const std::function<void()>& action);

}  // namespace quorvan::test
