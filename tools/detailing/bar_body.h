// What a bar covers of the plane in which it is drawn.
#pragma once

#include <vector>

#include <tools/detailing/formwork.h>
#include <tools/model/bar.h>

namespace quorvan::tool {

/// A straight leg of a bar: as wide as the bar, flat at its ends.
struct LegBody {
  PlanePoint from;
  PlanePoint to;
  double width = 0.0;
};

/// A bar seen end-on (radius 0), or a circular frame.
struct RingBody {
  PlanePoint center;
  double radius = 0.0;
  double width = 0.0;
};

/// In mm, seen along z, without hooks: in plan the file does not say where they point. Corners are
/// sharp. A bar without a finite place covers nothing.
struct BarBody {
  std::vector<LegBody> legs;
  std::vector<RingBody> rings;

  /// Points of the axis, which tell where it lies.
  [[nodiscard]] std::vector<PlanePoint> samples() const;
};

BarBody bodyOf(const Bar& bar, const LengthUnit& unit);

PlaneBox boxAround(const LegBody& leg, double margin);
PlaneBox boxAround(const RingBody& ring, double margin);

/// Whether the line runs through the axis from one side to the other.
bool passes(const LegBody& leg, const FormworkLine& line);
bool passes(const RingBody& ring, const FormworkLine& line);

/// Whether it would, drawn on without end.
bool passesDrawnOn(const LegBody& leg, const FormworkLine& line);

/// From the edge of the body to the line; 0 where they touch.
double gapBetween(const LegBody& leg, const FormworkLine& line);
double gapBetween(const RingBody& ring, const FormworkLine& line);

}  // namespace quorvan::tool
