#include <quorvan/export/series/repartition_geometry.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

#include <quorvan/geometry/plane_geometry.h>
#include <quorvan/geometry/vector.h>

namespace quorvan {

namespace {

constexpr const wchar_t* kStraightBar = L"CKtZantoStraightBar";
constexpr int kSimpleView = 1;

// Length of the auxiliary base line, and how far apart in x the ends of a frame that runs along y
// may lie, squared.
constexpr double kBaseLength = 10.0;
constexpr double kParallelToY = 1e-20;

double dot(const CKtVect3D& a, const CKtVect3D& b) {
  return a.X() * b.X() + a.Y() * b.Y() + a.Z() * b.Z();
}

// The line through the middle of the first frame from which the others are measured.
struct BaseLine {
  CKtPnt3D middle;
  CKtPnt3D auxiliary;
  bool alongY = false;  // whether the series is measured along y (else along x)
};

BaseLine baseLineOf(const PendingFrame& frame) {
  const CKtPnt3D first = frame.firstPoint();
  const CKtPnt3D second = frame.secondPoint();
  BaseLine base;
  base.middle.XYZ((first.X() + second.X()) / 2, (first.Y() + second.Y()) / 2,
                  (first.Z() + second.Z()) / 2);
  base.auxiliary = base.middle;
  const double apart = first.X() - second.X();
  base.alongY = !(apart * apart <= kParallelToY);
  if (base.alongY) {
    base.auxiliary.Y(base.middle.Y() + kBaseLength);
  } else {
    base.auxiliary.X(base.middle.X() + kBaseLength);
  }
  return base;
}

// The distance of `point` from the base line, positive to the left of the sign vector, seen from
// above; negative to its right and in line with it.
double signedDistance(const BaseLine& base, const CKtVect3D& sign, const CKtPnt3D& point) {
  const double distance = Distance(point, base.middle, base.auxiliary, 0.0);
  const CKtVect3D product = CKtVect3D(base.middle, point, 0) ^ sign;
  return distance * (product.Z() < 0 ? 1.0 : -1.0);
}

struct PlacedFrame {
  double offset;  // from the first frame, along the series
  std::unique_ptr<PendingFrame> frame;
};

// Straight bars are pushed in any order: they are put in ascending order along the direction from
// the first to the second, as a bubble sort would put them. Equal ones keep their order; a frame
// whose offset is no number stays where it is, and none goes past it.
void sortAlongSeries(FrameGroup& group) {
  const CKtPnt3D start = group.at(0)->firstPoint();
  const CKtVect3D direction(start, group.at(1)->firstPoint(), 0);
  std::vector<PlacedFrame> placed;
  placed.reserve(group.size());
  for (std::unique_ptr<PendingFrame>& frame : group) {
    const CKtVect3D fromStart(start, frame->firstPoint(), 0);
    const double offset = placed.empty() ? 0.0 : dot(fromStart, direction);
    placed.push_back({offset, std::move(frame)});
  }
  for (auto run = placed.begin(); run != placed.end();) {
    const auto end = std::find_if(
        run, placed.end(), [](const PlacedFrame& frame) { return std::isnan(frame.offset); });
    std::stable_sort(
        run, end, [](const PlacedFrame& a, const PlacedFrame& b) { return a.offset < b.offset; });
    run = end == placed.end() ? end : end + 1;
  }
  for (std::size_t k = 0; k < group.size(); ++k) {
    group[k] = std::move(placed[k].frame);
  }
}

// Top and bottom distances and positions as the host gave them.
void layOutSimpleSeries(const FrameGroup& group, CKtZantoRepartition& repartition) {
  for (const auto& frame : group) {
    repartition.insertDistanceTop(frame->value1);
    repartition.insertDistanceBottom(frame->value2);
    repartition.insertPosition(frame->value3);
  }
  repartition.setAxis(CKtVect3D());
}

void layOutAlong(const FrameGroup& group, const BaseLine& base, const CKtVect3D& sign,
                 CKtZantoRepartition& repartition) {
  repartition.setAxis(sign);
  for (const auto& frame : group) {
    repartition.insertDistanceTop(signedDistance(base, sign, frame->firstPoint()));
    repartition.insertDistanceBottom(signedDistance(base, sign, frame->secondPoint()));
  }
  for (std::size_t k = 1; k < group.size(); ++k) {
    const CKtPnt3D before = group[k - 1]->firstPoint();
    const CKtPnt3D here = group[k]->firstPoint();
    repartition.insertPosition(base.alongY ? std::fabs(here.Y() - before.Y())
                                           : std::fabs(here.X() - before.X()));
  }
  // When the last frame is parallel to the base line, x and y keep their defaults.
  CKtPnt3D end;
  IntersectionLine2D(base.middle, base.auxiliary, group.back()->firstPoint(),
                     group.back()->secondPoint(), end);
  end.Z(base.middle.Z());
  repartition.setPoint1(base.middle);
  repartition.setPoint2(end);
}

}  // namespace

void layOutRepartition(FrameGroup& group, CKtZantoRepartition& repartition) {
  const PendingFrame& first = *group.front();
  const bool straight = first.className == kStraightBar;
  if (straight && first.viewPoint == kSimpleView) {
    layOutSimpleSeries(group, repartition);
    return;
  }
  CKtVect3D sign(first.firstPoint(), group.at(1)->firstPoint(), 0);
  if (straight) {
    sortAlongSeries(group);
  } else {
    sign.Normalize();
  }
  const BaseLine base = baseLineOf(*group.front());
  if (straight) {
    sign = CKtVect3D(base.middle, base.auxiliary, 0);
  }
  layOutAlong(group, base, sign, repartition);
}

}  // namespace quorvan
