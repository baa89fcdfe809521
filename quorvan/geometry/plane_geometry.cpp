#include <quorvan/geometry/plane_geometry.h>

#include <cmath>

#include <quorvan/geometry/vector.h>

namespace {

// Sine of the angle up to which two lines count as parallel: coordinates that come from sines and
// cosines are off by some 1e-16, and lines that parallel would meet anywhere.
constexpr double kParallelSine = 1e-12;

double length(const CKtVect3D& vector) {
  return std::hypot(vector.X(), vector.Y(), vector.Z());
}

}  // namespace

int IntersectionLine2D(const CKtPnt3D& a1, const CKtPnt3D& a2, const CKtPnt3D& b1,
                       const CKtPnt3D& b2, CKtPnt3D& result) {
  const double ax = a2.X() - a1.X();
  const double ay = a2.Y() - a1.Y();
  const double bx = b2.X() - b1.X();
  const double by = b2.Y() - b1.Y();
  const double cross = ax * by - ay * bx;
  const double parallel = kParallelSine * std::hypot(ax, ay) * std::hypot(bx, by);
  // Written so that coordinates that are not numbers end here too.
  if (!(std::abs(cross) > parallel)) {
    return 0;
  }
  const double along = ((b1.X() - a1.X()) * by - (b1.Y() - a1.Y()) * bx) / cross;
  result.XYZ(a1.X() + along * ax, a1.Y() + along * ay, 0.0);
  return 1;
}

double Distance(const CKtPnt3D& p, const CKtPnt3D& a, const CKtPnt3D& b, double tolerance) {
  const CKtVect3D toPoint(a, p, 0);
  const CKtVect3D direction(a, b, 0);
  const double span = length(direction);
  if (span <= tolerance) {
    return length(toPoint);
  }
  return length(direction ^ toPoint) / span;
}
