// Shape codes of BS 8666:2020.
#pragma once

#include <string>
#include <vector>

#include <tools/bending/bent_bar.h>

namespace quorvan::tool {

struct Dimension {
  char letter = 0;
  double value = 0.0;      // mm, over everything
  bool isFree = false;     // takes up what bending leaves over
  bool isUnknown = false;  // not in the file
};

struct ShapeCode {
  static constexpr int kSketch = 99;  // a shape that fits no code

  int number = kSketch;
  std::vector<Dimension> dimensions;  // by letter; none for 99
  double length = 0.0;                // mm, unrounded: by the formula or along the centre line
  bool isByFormula = false;
  std::string legs = {};  // the letter of each leg of the bar; empty for 99
};

/// The code of the bar with its dimensions rounded to multiples of `step` mm, from which the
/// formula gives the length. The centre line is taken for 99, and for a bend of more than 45
/// degrees where the formula is an approximation. A bar on another roller than the usual one has a
/// code only if it has no bend, or one right angle over a larger roller.
///
/// Given are all but these, which no element of a drawing says: 01 is a stock length, in the shape
/// of 00; 33 and 67 are arcs of a radius of their own, 77 is a helix. 33 over the usual roller is
/// 63, whose length is the same.
ShapeCode shapeCodeOf(const BentBar& bent, double step);

}  // namespace quorvan::tool
