// CKtPlane: a plane in space.
#pragma once

#include <quorvan/api.h>

/// The plane Ax + By + Cz + D = 0: four plain coefficients, all 0 by default. Without an argument
/// each operation gives its coefficient, with one it sets it and leaves the others.
class QUORVAN_API CKtPlane {
 public:
  /// The coefficients: of x, y and z, and the constant.
  [[nodiscard]] double A() const noexcept { return m_a; }
  [[nodiscard]] double B() const noexcept { return m_b; }
  [[nodiscard]] double C() const noexcept { return m_c; }
  [[nodiscard]] double D() const noexcept { return m_d; }
  void A(double a) noexcept { m_a = a; }
  void B(double b) noexcept { m_b = b; }
  void C(double c) noexcept { m_c = c; }
  void D(double d) noexcept { m_d = d; }

 private:
  double m_d = 0.0;
  double m_c = 0.0;
  double m_b = 0.0;
  double m_a = 0.0;
};
