// The shape in the geometry block of a record.
//
// Legs are outside dimensions: up to a right angle from corner to corner of the outer faces, beyond
// it to the outermost point of the bend. A bend is made over the roller of the header; an arc has a
// radius of its own, of the axis, and its length is that radius times its angle.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include <tools/bvbs/record.h>

namespace quorvan::tool::bvbs {

struct ShapeLeg {
  bool isArc = false;
  double length = 0.0;  // mm; the radius of an arc
  double angle = 0.0;   // degrees through which an arc goes, to its side
  double bend = 0.0;    // degrees of the bend behind it, to its side; 0 at the end
  std::size_t at = 0;   // of its first field in the line
  std::size_t bendAt = 0;

  /// What it adds to the sum of the legs, in mm.
  [[nodiscard]] double legLength() const noexcept;
};

/// What is wrong with a geometry block from a place on.
enum class ShapeFaultKind : std::uint8_t {
  kStrangeField,  // no field of this geometry, or not in this place
  kNoNumber,
  kNoAngle,    // a leg without the bend behind it
  kBendAtEnd,  // the last leg is bent away into nothing
  kNoLength,   // a leg or radius that is not above 0
};

struct ShapeFault {
  ShapeFaultKind kind;
  char letter;
  std::size_t at;
};

struct BentShape {
  std::vector<ShapeLeg> legs;
  std::vector<std::array<double, 3>> offsets;  // in space: from corner to corner, mm
  std::vector<ShapeFault> faults;

  /// The sum of the legs, in mm.
  [[nodiscard]] double legSum() const noexcept;
  /// Along the centre line over a roller, in mm.
  [[nodiscard]] double centreLine(double diameter, double roller) const noexcept;
  /// What is straight of a leg between the bends around it, in mm; below 0 where they overlap.
  [[nodiscard]] double straightOf(std::size_t leg, double diameter, double roller) const noexcept;
};

/// The shape in the block, for a record of plane legs or of points in space; of a helix that of a
/// turn. Legs of a shape in space have the bends between its offsets.
BentShape readShape(const Record& record, const Block& geometry);

}  // namespace quorvan::tool::bvbs
