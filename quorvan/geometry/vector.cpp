#include <quorvan/geometry/vector.h>

#include <algorithm>
#include <cmath>

void CKtVect3D::Normalize() noexcept {
  const double largest = std::max({std::abs(m_x), std::abs(m_y), std::abs(m_z)});
  // Not std::isfinite(largest): std::max passes over what is not a number.
  if (largest == 0.0 || !std::isfinite(m_x) || !std::isfinite(m_y) || !std::isfinite(m_z)) {
    return;
  }
  // Scaling by a power of two is exact and keeps the squares inside the range of a double.
  const int exponent = std::ilogb(largest);
  const double x = std::scalbn(m_x, -exponent);
  const double y = std::scalbn(m_y, -exponent);
  const double z = std::scalbn(m_z, -exponent);
  const double length = std::sqrt(x * x + y * y + z * z);
  XYZ(x / length, y / length, z / length);
}
