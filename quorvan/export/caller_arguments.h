// What callers in other languages hand over, made safe to use. Not installed.
#pragma once

#include <initializer_list>

namespace quorvan {

/// The flag of a caller who may have put any byte into it: a Boolean of other languages is 255, or
/// whatever else is not 0. The byte is read as such, because a bool is taken to be 0 or 1.
inline bool flagOf(const bool& flag) noexcept {
  return *reinterpret_cast<const volatile unsigned char*>(&flag) != 0;
}

/// Whether every array is there, as far as the count asks for entries.
inline bool areThere(int count, std::initializer_list<const double*> arrays) noexcept {
  if (count <= 0) {
    return true;
  }
  for (const double* array : arrays) {
    if (array == nullptr) {
      return false;
    }
  }
  return true;
}

}  // namespace quorvan
