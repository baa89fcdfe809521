// The part of the host CAD system's geometry library that point comparison needs: its point, its
// tolerance and the one global tolerance of the process.
#pragma once

#include <quorvan/api.h>

/// How far apart two things may lie and still count as equal.
class QUORVAN_API AcGeTol {
 public:
  /// The distance up to which two points are equal, in drawing units; 1e-10 by default.
  [[nodiscard]] double equalPoint() const noexcept { return m_equalPoint; }
  /// Changes that distance; 0 leaves only identical points equal.
  void setEqualPoint(double distance) noexcept { m_equalPoint = distance; }

 private:
  double m_equalPoint = 1e-10;
};

/// The settings of the host's geometry library for the whole process.
struct QUORVAN_API AcGeContext {
  /// The tolerance by which points are compared; a host may change it.
  static AcGeTol gTol;
};

/// A point of the host CAD system.
class QUORVAN_API AcGePoint3d {
 public:
  AcGePoint3d() noexcept = default;
  /// The point with these coordinates.
  AcGePoint3d(double xCoordinate, double yCoordinate, double zCoordinate) noexcept
      : x(xCoordinate), y(yCoordinate), z(zCoordinate) {}

  /// Whether the distance to `other` is at most the tolerance's equal-point distance; false when
  /// a coordinate is not a number.
  [[nodiscard]] bool isEqualTo(const AcGePoint3d& other,
                               const AcGeTol& tolerance = AcGeContext::gTol) const noexcept;

  /// The coordinates, in the host's length unit.
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
};
