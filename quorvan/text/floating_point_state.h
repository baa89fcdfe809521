// The state of the processor's arithmetic, which belongs to the host: how it rounds, whether it
// flushes the smallest numbers to zero, which exceptions it traps and which have occurred. Not
// installed.
#pragma once

#if defined(__SSE2__) || defined(_M_X64)
#include <xmmintrin.h>
#define QUORVAN_HAS_MXCSR
#else
#include <cfenv>
#endif

namespace quorvan {

#ifdef QUORVAN_HAS_MXCSR

/// Whether an operation on ordinary numbers rounds to nearest, and leaves the state as it is even
/// when its result is inexact.
inline bool roundsQuietly() noexcept {
  constexpr unsigned kControl = 0xFFC0;
  constexpr unsigned kInexact = 0x0020;
  constexpr unsigned kDefault = 0x1F80;
  return (_mm_getcsr() & (kControl | kInexact)) == (kDefault | kInexact);
}

/// While it lives, the state is that of a program's beginning; afterwards what it was before.
class InitialFloatingPointState {
 public:
  InitialFloatingPointState() noexcept : m_former(_mm_getcsr()) {
    constexpr unsigned kInitial = 0x1F80;
    _mm_setcsr(kInitial);
  }
  ~InitialFloatingPointState() { _mm_setcsr(m_former); }
  InitialFloatingPointState(const InitialFloatingPointState&) = delete;
  InitialFloatingPointState& operator=(const InitialFloatingPointState&) = delete;

 private:
  unsigned m_former;
};

#else

inline bool roundsQuietly() noexcept {
  return std::fegetround() == FE_TONEAREST && std::fetestexcept(FE_INEXACT) != 0;
}

class InitialFloatingPointState {
 public:
  InitialFloatingPointState() noexcept {
    std::fegetenv(&m_former);
    std::fesetenv(FE_DFL_ENV);
  }
  ~InitialFloatingPointState() { std::fesetenv(&m_former); }
  InitialFloatingPointState(const InitialFloatingPointState&) = delete;
  InitialFloatingPointState& operator=(const InitialFloatingPointState&) = delete;

 private:
  std::fenv_t m_former;
};

#endif

}  // namespace quorvan
