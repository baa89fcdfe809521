// How both performances word what they saw.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include <tests/filer/model/script.h>

namespace quorvan::test::model {

/// Stands in outputs before a call.
inline constexpr std::int32_t kUntouched = 777;

/// The length of a list that a call writes; "size" is the call's number.
inline std::size_t listLength(const Call& call) {
  return call.text.size() % 4;
}

inline std::string describedNumber(double value) {
  char text[64];
  const int length = std::snprintf(text, sizeof text, "%.17g", value);
  return {text, static_cast<std::size_t>(length)};
}

inline std::string describedNumber(int result, double value) {
  return std::to_string(result) + ' ' + describedNumber(value);
}

inline std::string describedCount(int result, long count) {
  return std::to_string(result) + ' ' + std::to_string(count);
}

inline std::string describedPoint(int result, const Point& point) {
  return std::to_string(result) + " (" + describedNumber(point.x) + ' ' + describedNumber(point.y) +
         ' ' + describedNumber(point.z) + ')';
}

inline std::string describedList(int result, const std::vector<Point>& entries, long count) {
  std::string text = describedCount(result, count);
  for (const Point& entry : entries) {
    text += ' ' + describedPoint(0, entry);
  }
  return text;
}

/// Closing may raise what the document service makes of a file that it cannot write.
inline std::string describedError(Action action, bool isPointer, bool isFail) {
  if (action == Action::kClose) {
    return "raised";
  }
  return isPointer ? "E_POINTER" : isFail ? "E_FAIL" : "raised";
}

}  // namespace quorvan::test::model
