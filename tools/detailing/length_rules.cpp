#include <algorithm>
#include <cmath>

#include <tools/detailing/detailing_rules.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

// Up to which radius of the axis, in mm, a bar of so many mm is bent before delivery.
struct GreatestRadius {
  double diameter;
  double radius;
};
constexpr GreatestRadius kGreatestRadii[] = {{6, 2500},   {8, 2750},   {10, 3500},
                                             {12, 4250},  {16, 7500},  {20, 14000},
                                             {25, 30000}, {32, 43000}, {40, 58000}};

std::vector<double> radiiOf(const RuledBar& ruled) {
  std::vector<double> radii;
  if (ruled.bar.shape == BarShape::kFrameCirc) {
    radii.push_back(ruled.least.ringRadius);
  }
  for (const FacetedArc& arc : ruled.arcs) {
    radii.push_back(arc.radius);
  }
  return radii;
}

}  // namespace

bool checkStock(const Subject& subject, const BentBar& bent, double stock, BreachSink& sink) {
  const double length = bent.centreLine();
  if (!std::isfinite(length) || !(length > stock + kLengthSlack)) {
    return false;
  }
  sink.add(findings::kStockLength, subject, "", inMillimetres(length) + " along the centre line",
           inMillimetres(stock) + " at most, the length of the stock",
           {"length of the stock", length, stock,
            "divide the bar with a lap, or say with --stock that longer ones can be had"});
  return true;
}

void checkArcs(const RuledBar& ruled, BreachSink& sink) {
  const std::vector<double> radii = radiiOf(ruled);
  if (radii.empty()) {
    return;
  }
  const double d = ruled.least.diameter;
  const auto limit = std::ranges::find_if(
      kGreatestRadii, [d](const auto& one) { return std::abs(one.diameter - d) < 1e-6; });
  if (limit == std::end(kGreatestRadii)) {
    sink.leaveOut(findings::kFlatArc, "bars of a diameter without a greatest radius", true);
    return;
  }
  const double flattest = std::ranges::max(radii);
  if (std::isfinite(flattest) && flattest > limit->radius + kLengthSlack) {
    sink.add(findings::kFlatArc, ruled.subject,
             ruled.bar.shape == BarShape::kFrameCirc ? "FrameRadius" : "",
             "a radius of " + inMillimetres(flattest),
             inMillimetres(limit->radius) + " at most for bars of " + inMillimetres(d) +
                 " (BS 8666, greatest preformed radius)",
             {"BS 8666, greatest preformed radius", flattest, limit->radius,
              "order the bar straight: it is bent by hand where it is laid"});
  }
}

void checkSpacing(const Subject& series, const std::vector<double>& spacings, double diameter,
                  const DetailingLimits& limits, BreachSink& sink) {
  constexpr double kLeastSpacing = 20.0;
  constexpr double kBeyondAggregate = 5.0;
  if (spacings.empty()) {
    return;
  }
  const auto smallest =
      std::ranges::min_element(spacings, {}, [](double spacing) { return std::abs(spacing); });
  const double clear = std::abs(*smallest) - diameter;
  double limit = std::max(diameter, kLeastSpacing);
  if (limits.aggregate) {
    limit = std::max(limit, *limits.aggregate + kBeyondAggregate);
  }
  // Without any step the repartition is degenerate, which is a finding of its own.
  const bool hasSteps = std::ranges::any_of(
      spacings, [](double spacing) { return std::abs(spacing) > kLengthSlack; });
  if (hasSteps && clear < limit - kLengthSlack) {
    const auto place = smallest - spacings.begin() + 1;
    sink.add(findings::kClearSpacing, series, "Positions",
             inMillimetres(clear) + " clear between bars " + std::to_string(place) + " and " +
                 std::to_string(place + 1) + ", which are " + inMillimetres(diameter) + " thick",
             inMillimetres(limit) + " at least, the greatest of d, " +
                 (limits.aggregate ? "20 mm, and the aggregate and 5 mm" : "and 20 mm") +
                 " (EN 1992-1-1, 8.2(2))",
             {"EN 1992-1-1, 8.2(2)", clear, limit,
              "set the bars " + inMillimetres(limit + diameter) + " apart from axis to axis"});
  }
}

}  // namespace quorvan::tool
