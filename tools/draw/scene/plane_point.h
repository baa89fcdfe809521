// Points and directions in the plane of the sheet: x to the right, y upwards.
#pragma once

#include <cmath>

namespace quorvan::tool {

struct PlanePoint {
  double x = 0.0;
  double y = 0.0;

  friend bool operator==(const PlanePoint&, const PlanePoint&) = default;
  friend PlanePoint operator+(PlanePoint a, PlanePoint b) noexcept {
    return {a.x + b.x, a.y + b.y};
  }
  friend PlanePoint operator-(PlanePoint a, PlanePoint b) noexcept {
    return {a.x - b.x, a.y - b.y};
  }
  friend PlanePoint operator*(PlanePoint a, double factor) noexcept {
    return {a.x * factor, a.y * factor};
  }
};

inline double lengthOf(PlanePoint a) noexcept {
  return std::hypot(a.x, a.y);
}

/// Above 0 when `b` lies to the left of `a`.
inline double crossOf(PlanePoint a, PlanePoint b) noexcept {
  return a.x * b.y - a.y * b.x;
}

/// The direction of length 1; that of x for a point without direction.
inline PlanePoint directionOf(PlanePoint a) noexcept {
  const double length = lengthOf(a);
  return length > 0.0 ? PlanePoint{a.x / length, a.y / length} : PlanePoint{1.0, 0.0};
}

inline PlanePoint leftOf(PlanePoint a) noexcept {
  return {-a.y, a.x};
}

/// Turned to the left by `angle` radians.
inline PlanePoint turned(PlanePoint a, double angle) noexcept {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  return {a.x * c - a.y * s, a.x * s + a.y * c};
}

inline bool isFinite(PlanePoint a) noexcept {
  return std::isfinite(a.x) && std::isfinite(a.y);
}

}  // namespace quorvan::tool
