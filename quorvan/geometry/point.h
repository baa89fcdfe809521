// CKtPnt3D: a point in space.
#pragma once

#include <quorvan/api.h>
#include <quorvan/platform/host_geometry.h>
#include <quorvan/platform/integer_point.h>

/// A point in drawing units; a plain value, (0, 0, 0) by default.
class QUORVAN_API CKtPnt3D {
 public:
  CKtPnt3D() noexcept = default;
  /// The point (x, y, z).
  CKtPnt3D(double x, double y, double z) noexcept : m_x(x), m_y(y), m_z(z) {}
  /// The point (x, y, 0).
  CKtPnt3D(const CPoint& point) noexcept  // NOLINT(google-explicit-constructor)
      : m_x(static_cast<double>(point.x)), m_y(static_cast<double>(point.y)) {}

  /// The coordinates, in drawing units: each read or set by itself, or all set at once.
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

  /// The host CAD system's point with the same coordinates.
  operator AcGePoint3d() const noexcept {  // NOLINT(google-explicit-constructor)
    return {m_x, m_y, m_z};
  }

  /// 1 when the two points lie within the host's equal-point tolerance (AcGeContext::gTol) of each
  /// other, else 0.
  int operator==(const CKtPnt3D& other) const noexcept {
    return AcGePoint3d(*this).isEqualTo(other, AcGeContext::gTol) ? 1 : 0;
  }
  /// 1 exactly when == gives 0.
  int operator!=(const CKtPnt3D& other) const noexcept { return *this == other ? 0 : 1; }

 private:
  double m_x = 0.0;
  double m_y = 0.0;
  double m_z = 0.0;
};
