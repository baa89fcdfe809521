// A bar as a bending machine makes it, of whichever class it is filed.
//
// The file has the axis of a bar with sharp corners. Each corner is bent over a roller, hooks are
// bends as well, and from both follow the centre line, the outside dimensions and the straight
// parts.
#pragma once

#include <vector>

#include <tools/bending/bending_rules.h>
#include <tools/model/bar.h>
#include <tools/model/length_unit.h>

namespace quorvan::tool {

/// Everything in mm and radians.
struct Bend {
  double angle = 0.0;  // by which the bar turns, from 0
  bool isLeft = true;  // seen from the side from which the first bend goes to the left
  bool isHook = false;
  double radius = 0.0;  // of the axis

  /// How far it reaches from its corner along both legs. A hook beyond a right angle has no corner
  /// in reach: it begins where the bend touches the line through the end of the bar.
  [[nodiscard]] double reach() const noexcept;
};

/// Between two bends, or a bend and an end.
struct Leg {
  double axis = 0.0;       // from corner to corner, as the file has it
  double outside = 0.0;    // over everything; beyond a right angle to the outermost point of a bend
  double straight = 0.0;   // between the bends
  double room = 0.0;       // the same over the full roller: below 0 where bends have too little
  bool isArc = false;      // the turns of a circular frame
  bool isLeft = true;      // the side to which an arc goes, as that of a bend
  bool isUnknown = false;  // the width of a stirrup: as narrow as the bends allow
};

struct BentBar {
  BarShape shape = BarShape::kStraight;
  double diameter = 0.0;
  double roller = 0.0;      // diameter
  std::vector<Leg> legs;    // none for a bar seen end-on
  std::vector<Bend> bends;  // one fewer than legs
  double ringRadius = 0.0;  // of the axis of a circular frame
  double overlap = 0.0;     // of a circular frame
  /// Ends and corners as the file has them, in its unit and without hooks; of a stirrup the ends of
  /// its long axis, of a circular frame none.
  std::vector<Coordinates> axis;
  std::vector<Coordinates> course;  // the same of a bar that lies in no plane, its hooks included
  bool isTurnedOver = false;        // in the file the first bend goes to the right
  bool beginsWithHook = false;      // the first leg is a hook, and the last
  bool endsWithHook = false;
  bool fits = true;  // every leg has room for its bends; where not, they are bent closer
  bool isLowerBound = false;

  [[nodiscard]] bool isPlane() const noexcept { return course.empty(); }
  /// Along the axis with its sharp corners; the unknown leg counts as 0.
  [[nodiscard]] double axisLength() const noexcept;
  /// Along the centre line, bends included: what is cut.
  [[nodiscard]] double centreLine() const noexcept;
};

/// The bar as bent. Lengths that are no number stay what they are.
BentBar bend(const Bar& bar, const LengthUnit& unit, const BendingRules& rules);

}  // namespace quorvan::tool
