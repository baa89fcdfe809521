#include <tests/tools/bending/sample_bars.h>

#include <cmath>
#include <numbers>

namespace quorvan::test {

tool::Bar polygonBar(double diameter, const std::vector<double>& legs,
                     const std::vector<double>& turns) {
  tool::Bar bar;
  bar.shape = tool::BarShape::kPolygon;
  bar.diameter = diameter;
  tool::Coordinates at;
  double way = 0.3;
  bar.line.push_back(at);
  for (std::size_t i = 0; i < legs.size(); ++i) {
    at = {at.x + legs[i] * std::cos(way), at.y + legs[i] * std::sin(way), at.z};
    bar.line.push_back(at);
    way += i < turns.size() ? turns[i] * std::numbers::pi / 180.0 : 0.0;
  }
  return bar;
}

tool::BentBar bent(const tool::Bar& bar, const tool::BendingRules& rules) {
  return tool::bend(bar, tool::kLengthUnits[0], rules);
}

}  // namespace quorvan::test
