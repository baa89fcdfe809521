// Counts of class elements. Not installed.
#pragma once

namespace quorvan::filer {

/// `count` changed by `change`. Every search adds the document's counts to those present, so that
/// searches in a row take a count to any height: it wraps at 32 bits.
constexpr int changedCount(int count, int change) noexcept {
  return static_cast<int>(static_cast<unsigned int>(count) + static_cast<unsigned int>(change));
}

}  // namespace quorvan::filer
