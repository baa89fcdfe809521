// The axis of a bar with sharp corners: its legs and how it turns from one to the next.
#pragma once

#include <vector>

#include <tools/bending/bending_rules.h>
#include <tools/model/bar.h>

namespace quorvan::tool {

struct Corner {
  double angle = 0.0;  // of turning, from 0
  bool isLeft = true;
  bool isHook = false;
};

/// In the unit of the drawing. Legs that go on in the same direction are one, hooks are legs.
struct CornerLine {
  std::vector<double> legs;
  std::vector<Corner> corners;  // one fewer than legs
  bool beginsWithHook = false;  // the first leg is a hook, and the last
  bool endsWithHook = false;
  std::vector<Coordinates> axis;    // its ends and corners without hooks; a stirrup's long axis
  std::vector<Coordinates> course;  // of a bar that lies in no plane: the same, hooks included
};

/// Of every class but the circular frame and the bar seen end-on. The stirrup runs around a
/// rectangle whose width is 0.
CornerLine cornerLineOf(const Bar& bar, AngleUnit angles);

/// Whether the two are the same shape, from whichever end and side they are seen: legs within a
/// thousandth of the way, turns within a degree. To which side hooks are bent does not count,
/// because a bar in plan does not say it; nor do corners of less than a degree.
bool areAlike(const CornerLine& one, const CornerLine& other);

}  // namespace quorvan::tool
