// CKtVect3D: a vector in space.
#pragma once

#include <quorvan/api.h>
#include <quorvan/geometry/point.h>

/// A vector in drawing units; a plain value, (0, 0, 0) by default.
///
/// The constructors with a flag take the components as they come for flag 0; any other flag makes
/// the vector a unit vector, as Normalize does.
class QUORVAN_API CKtVect3D {
 public:
  CKtVect3D() noexcept = default;
  /// The vector (x, y, z).
  CKtVect3D(double x, double y, double z) noexcept : m_x(x), m_y(y), m_z(z) {}
  /// From the origin to `point`.
  CKtVect3D(const CKtPnt3D& point, int flag) noexcept
      : m_x(point.X()), m_y(point.Y()), m_z(point.Z()) {
    applyFlag(flag);
  }
  /// From `from` to `to`.
  CKtVect3D(const CKtPnt3D& from, const CKtPnt3D& to, int flag) noexcept
      : CKtVect3D(from.X(), from.Y(), from.Z(), to.X(), to.Y(), to.Z(), flag) {}
  /// From (x1, y1, z1) to (x2, y2, z2).
  CKtVect3D(double x1, double y1, double z1, double x2, double y2, double z2, int flag) noexcept
      : m_x(x2 - x1), m_y(y2 - y1), m_z(z2 - z1) {
    applyFlag(flag);
  }

  /// The components, in drawing units: each read or set by itself, or all set at once.
  [[nodiscard]] double X() const noexcept { return m_x; }
  [[nodiscard]] double Y() const noexcept { return m_y; }
  [[nodiscard]] double Z() const noexcept { return m_z; }
  void X(double x) noexcept { m_x = x; }
  void Y(double y) noexcept { m_y = y; }
  void Z(double z) noexcept { m_z = z; }
  void XYZ(double x, double y, double z) noexcept {
    m_x = x;
    m_y = y;
    m_z = z;
  }

  /// Scales the vector to length 1. A zero vector stays zero; a vector with a component that is
  /// infinite or not a number stays as it is.
  void Normalize() noexcept;

 private:
  void applyFlag(int flag) noexcept {
    if (flag != 0) {
      Normalize();
    }
  }

  double m_x = 0.0;
  double m_y = 0.0;
  double m_z = 0.0;
};

/// The cross product of `a` and `b`.
inline CKtVect3D operator^(const CKtVect3D& a, const CKtVect3D& b) noexcept {
  return {a.Y() * b.Z() - a.Z() * b.Y(), a.Z() * b.X() - a.X() * b.Z(),
          a.X() * b.Y() - a.Y() * b.X()};
}
