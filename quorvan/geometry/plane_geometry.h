// Lines against lines and points.
#pragma once

#include <quorvan/api.h>
#include <quorvan/geometry/point.h>

/// Intersects, in the plane of x and y, the infinite line through `a1` and `a2` with the one
/// through `b1` and `b2`. Returns 1 with the point in `result`, whose z is 0. Returns 0 and leaves
/// `result` as it is when the lines do not meet in one point: parallel (directions that differ by
/// no more than the rounding of coordinates, 1e-12 rad), or two points of a line on top of each
/// other. `result` may be one of the four points.
QUORVAN_API int IntersectionLine2D(const CKtPnt3D& a1, const CKtPnt3D& a2, const CKtPnt3D& b1,
                                   const CKtPnt3D& b2, CKtPnt3D& result);

/// The distance in space of `p` from the infinite line through `a` and `b`, never negative. When
/// `a` and `b` are no further apart than `tolerance` there is no line, and it is the distance of
/// `p` from `a`; a tolerance of 0.0 leaves that to points that coincide exactly.
QUORVAN_API double Distance(const CKtPnt3D& p, const CKtPnt3D& a, const CKtPnt3D& b,
                            double tolerance);
