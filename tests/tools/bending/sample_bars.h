// Bars made up leg by leg.
#pragma once

#include <string_view>
#include <vector>

#include <tools/bending/bent_bar.h>

namespace quorvan::test {

/// A polygon bar whose axis has these legs, and turns so many degrees between them, to the left
/// above 0.
tool::Bar polygonBar(double diameter, const std::vector<double>& legs,
                     const std::vector<double>& turns);

/// As it is bent by the usual rules, in mm and degrees.
tool::BentBar bent(const tool::Bar& bar, const tool::BendingRules& rules = {});

}  // namespace quorvan::test
