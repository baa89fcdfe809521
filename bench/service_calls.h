// The calls that the library makes of Windows' XML document service, counted and timed.
//
// Every function of the service's interfaces is led through a counter first. A call that the
// service makes of itself belongs to the call that it serves. Calls of one thread only; one object
// at a time, and none on a system where the caller does not take the arguments off the stack
// (32-bit Windows).
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace bench {

class ServiceCalls {
 public:
  /// Counts from now on. Raises std::runtime_error where there is no service.
  ServiceCalls();
  ServiceCalls(const ServiceCalls&) = delete;
  ServiceCalls& operator=(const ServiceCalls&) = delete;
  /// The service is as it was.
  ~ServiceCalls();

  /// Begins again at nothing.
  void clear() noexcept;

  /// How often each function was called, those that were; AddRef and Release are not counted.
  [[nodiscard]] std::map<std::string, int> counts() const;

  /// All of them together.
  [[nodiscard]] int total() const;

  struct Cost {
    int calls = 0;
    double seconds = 0;  // in all of them, of the time inside the service
  };

  /// The same with what they took, given the seconds that have passed since the beginning.
  [[nodiscard]] std::map<std::string, Cost> costs(double seconds) const;

  /// The part of the time since the beginning that was spent inside the service, from 0 to 1.
  [[nodiscard]] double share() const noexcept;

 private:
  std::uint64_t m_begin = 0;
};

}  // namespace bench
