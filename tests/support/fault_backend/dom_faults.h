// Calls of the XML document service that fail when a test wants them to. For programs that are
// linked with the fault backend.
#pragma once

#include <string>

#include <quorvan/platform/com_error.h>

namespace quorvan::test {

/// In which way a call fails.
enum class DomFault {
  kFail,         // raises E_FAIL
  kOutOfMemory,  // raises E_OUTOFMEMORY
  kBadAlloc,     // raises std::bad_alloc
  kNothing,      // returns nothing, where the contract allows that instead of an error
};

/// While it lives, the call of that number (from 1 on), and every later one if `lasts`, fails. Only
/// calls that can fail in this way are counted. One at a time.
class DomFaults {
 public:
  DomFaults(int call, DomFault fault, bool lasts) noexcept;
  DomFaults(const DomFaults&) = delete;
  DomFaults& operator=(const DomFaults&) = delete;
  ~DomFaults();

  /// Whether a call has failed.
  [[nodiscard]] bool hasFailed() const noexcept;

  /// The operation that failed first, and the name it was given: "createElement Line".
  [[nodiscard]] const std::string& failed() const noexcept;
};

/// While it lives, documents that are opened keep no revision, like those of Windows' service. One
/// at a time.
class NoRevisions {
 public:
  NoRevisions() noexcept;
  NoRevisions(const NoRevisions&) = delete;
  NoRevisions& operator=(const NoRevisions&) = delete;
  ~NoRevisions();
};

}  // namespace quorvan::test
