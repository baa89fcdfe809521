// Allocations that fail when a test wants them to.
#pragma once

namespace quorvan::test {

/// While it lives, the allocation of that number (from 1 on), and every later one if `lasts`,
/// fails in this thread. One at a time.
class AllocationFault {
 public:
  AllocationFault(int allocation, bool lasts) noexcept;
  AllocationFault(const AllocationFault&) = delete;
  AllocationFault& operator=(const AllocationFault&) = delete;
  ~AllocationFault();
};

}  // namespace quorvan::test
