// The geometry block of a bar as it is bent.
#pragma once

#include <cstdint>
#include <string>

#include <tools/bending/bent_bar.h>

namespace quorvan::tool::bvbs {

/// To where a leg is measured at a bend beyond a right angle, whose outer corner lies far off or
/// nowhere: to the outermost point of the bend, or to the corner of the axis. Programs differ.
enum class ObtuseLegs : std::uint8_t { kOutermost, kAxis };

struct ShapeGeometry {
  bool isSpatial = false;
  std::string block;       // with its letter: "Gl600@w90@l1200@w0@"
  double legSum = 0.0;     // mm, of the legs as written
  bool hasObtuse = false;  // a bend beyond a right angle
};

/// Equal for bars that are bent alike, from whichever end they are filed and however they lie:
/// of the two ends the one that reads lower comes first, the first bend goes to the positive side,
/// and a bar in space begins along x and turns towards y. The bar has legs, all of them known.
ShapeGeometry geometryOf(const BentBar& bent, ObtuseLegs obtuse);

}  // namespace quorvan::tool::bvbs
