// CPoint: a point of whole numbers, as MFC has it.
#pragma once

/// A plain pair of whole coordinates, both 0 by default.
class CPoint {
 public:
  CPoint() noexcept = default;
  /// The point with these coordinates.
  CPoint(int initX, int initY) noexcept : x(initX), y(initY) {}

  friend bool operator==(const CPoint& a, const CPoint& b) noexcept {
    return a.x == b.x && a.y == b.y;
  }
  friend bool operator!=(const CPoint& a, const CPoint& b) noexcept { return !(a == b); }

  /// The coordinates.
  long x = 0;
  long y = 0;
};
