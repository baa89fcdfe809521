#include <quorvan/platform/host_geometry.h>

#include <cmath>

AcGeTol AcGeContext::gTol;

bool AcGePoint3d::isEqualTo(const AcGePoint3d& other, const AcGeTol& tolerance) const noexcept {
  return std::hypot(x - other.x, y - other.y, z - other.z) <= tolerance.equalPoint();
}
