// The border over which nothing is thrown. Not installed.
#pragma once

#include <quorvan/errors/last_error.h>

namespace quorvan::reading {

/// Runs what gives a result; what it raises becomes one.
template <class Act>
int guarded(const Act& act) noexcept {
  try {
    return act();
  } catch (...) {
    return failWithCurrentError();
  }
}

}  // namespace quorvan::reading
