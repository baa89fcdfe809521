// The rules of detailing from both sides of each border.
#include <tools/detailing/detailing_check.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include <tests/tools/drawn_elements.h>
#include <tests/tools/loaded_file.h>
#include <tools/detailing/detailing_findings.h>

namespace quorvan::tool {

namespace {

using test::barOf;
using test::BarParts;
using test::seriesOf;
using Codes = std::vector<int>;

DetailingLimits limitsOf(bool isBritish) {
  DetailingLimits limits;
  limits.hasEurocode2 = !isBritish;
  limits.hasBs8666 = isBritish;
  limits.hooks = HookMeaning::kStraight;
  return limits;
}

const DetailingLimits kEurocode = limitsOf(false);
const DetailingLimits kBritish = limitsOf(true);

DetailingReport reportOn(const std::string& elements, const DetailingLimits& limits) {
  return checkDetailing(test::loadedElements(elements).file(), limits);
}

Codes brokenRules(const std::string& elements, const DetailingLimits& limits) {
  Codes codes;
  for (const Finding& finding : reportOn(elements, limits).findings) {
    codes.push_back(finding.kind->number);
  }
  return codes;
}

// The reasons for which a rule was left out.
std::vector<std::string> reasonsFor(int code, const DetailingReport& report) {
  std::vector<std::string> reasons;
  for (const NotChecked& one : report.notChecked) {
    if (one.kind->number == code) {
      reasons.push_back(one.reason);
    }
  }
  return reasons;
}

std::string frameWith(double hook, double angle, double diameter) {
  return barOf({.className = "FrameRect",
                .points = {{0, 0, 0}, {2000, 0, 0}, {2000, 3000, 0}},
                .hookLength1 = hook,
                .hookAngle1 = angle,
                .diameter = diameter});
}

TEST(DetailingRules, HoldEndsOfLinks) {
  EXPECT_EQ(brokenRules(frameWith(50, 135, 8), kEurocode), Codes{});
  EXPECT_EQ(brokenRules(frameWith(49.8, 135, 8), kEurocode), Codes{801});
  EXPECT_EQ(brokenRules(frameWith(60, 135, 12), kEurocode), Codes{}) << "5 d";
  EXPECT_EQ(brokenRules(frameWith(59.8, 135, 12), kEurocode), Codes{801});
  EXPECT_EQ(brokenRules(frameWith(80, 90, 8), kEurocode), Codes{}) << "10 d";
  EXPECT_EQ(brokenRules(frameWith(79.8, 90, 8), kEurocode), Codes{801});
  EXPECT_EQ(brokenRules(frameWith(69.8, 90, 6), kEurocode), Codes{801}) << "70 mm";
  EXPECT_EQ(brokenRules(frameWith(70, 90, 6), kEurocode), Codes{});
  EXPECT_EQ(brokenRules(frameWith(79.8, 134, 8), kEurocode), Codes{801});
}

TEST(DetailingRules, TakeAHookByEitherReadingUnlessOneIsSaid) {
  DetailingLimits limits = kEurocode;
  limits.hooks.reset();
  EXPECT_EQ(brokenRules(frameWith(69, 135, 8), limits), Codes{});
  EXPECT_EQ(reasonsFor(801, reportOn(frameWith(69, 135, 8), limits)),
            std::vector<std::string>{
                "1 links whose hooks are long enough only if their length in the file does not "
                "count the bend: --hooks says it"});
  limits.hooks = HookMeaning::kCorner;  // the bend takes 20 mm
  EXPECT_EQ(brokenRules(frameWith(69.8, 135, 8), limits), Codes{801});
  EXPECT_EQ(brokenRules(frameWith(70, 135, 8), limits), Codes{});
}

std::string straightWith(double hook, double angle, double diameter) {
  return barOf({.points = {{0, 0, 0}, {3000, 0, 0}},
                .hookLength1 = hook,
                .hookAngle1 = angle,
                .diameter = diameter});
}

// The straight part of the hook is what the projection is without the bend.
TEST(DetailingRules, HoldEndProjections) {
  const double bend = 12 + 24;
  EXPECT_EQ(brokenRules(straightWith(126 - bend, 90, 12), kBritish), Codes{});
  EXPECT_EQ(brokenRules(straightWith(124.8 - bend, 90, 12), kBritish), Codes{802});
  EXPECT_EQ(brokenRules(straightWith(100, 90, 20), kBritish), Codes{});
  EXPECT_EQ(brokenRules(straightWith(99.8, 90, 20), kBritish), Codes{802});
  EXPECT_EQ(brokenRules(frameWith(90, 135, 8), kBritish), Codes{}) << "10 d are less than 90 mm";
  EXPECT_EQ(brokenRules(frameWith(120, 135, 12), kBritish), Codes{});
  EXPECT_EQ(brokenRules(frameWith(119.8, 135, 12), kBritish), Codes{802});
  EXPECT_EQ(brokenRules(frameWith(90, 150, 12), kBritish), Codes{}) << "a hook of a link";
}

// For 16 mm the table says 130 and its formula 138.
TEST(DetailingRules, LeaveOutProjectionsBetweenTheTableAndItsFormula) {
  const double bend = 16 + 32;
  EXPECT_EQ(brokenRules(straightWith(130 - bend, 90, 16), kBritish), Codes{});
  EXPECT_EQ(
      reasonsFor(802, reportOn(straightWith(130 - bend, 90, 16), kBritish)),
      std::vector<std::string>{"1 ends between the value of the table and that of its formula"});
  EXPECT_TRUE(reasonsFor(802, reportOn(straightWith(138 - bend, 90, 16), kBritish)).empty());
  EXPECT_EQ(brokenRules(straightWith(129.8 - bend, 90, 16), kBritish), Codes{802});
}

std::string cupWith(double base, double diameter, double leg = 900) {
  return barOf({.className = "UBar",
                .points = {{0, leg, 0}, {0, 0, 0}, {base, 0, 0}},
                .diameter = diameter});
}

TEST(DetailingRules, HoldLegsBetweenBends) {
  EXPECT_EQ(brokenRules(cupWith(9 * 12, 12), kBritish), Codes{}) << "4 d and two bends of 2.5 d";
  EXPECT_EQ(brokenRules(cupWith(9 * 12 - 0.2, 12), kBritish), Codes{803});
  EXPECT_EQ(brokenRules(cupWith(12 * 20, 20), kBritish), Codes{});
  EXPECT_EQ(brokenRules(cupWith(12 * 20 - 0.2, 20), kBritish), Codes{803});
  EXPECT_EQ(brokenRules(cupWith(5 * 12, 12), kBritish), Codes{}) << "turned back over one roller";
}

TEST(DetailingRules, HoldPiecesAgainstTheStock) {
  const auto bar = [](double length) { return barOf({.points = {{0, 0, 0}, {length, 0, 0}}}); };
  EXPECT_EQ(brokenRules(bar(12000), kEurocode), Codes{});
  EXPECT_EQ(brokenRules(bar(12000.2), kEurocode), Codes{804});
  EXPECT_EQ(brokenRules(bar(12000.2), kBritish), Codes{804});
  DetailingLimits limits = kEurocode;
  limits.stock = 14000;
  EXPECT_EQ(brokenRules(bar(14000), limits), Codes{});
  EXPECT_EQ(brokenRules(bar(14000.2), limits), Codes{804});
}

// The longest bar of a series counts, and a repeated bar that is too long itself counts once.
TEST(DetailingRules, HoldSeriesAgainstTheStock) {
  test::SeriesParts series = test::uprightBars(0, 0, 6000, 3, 200);
  series.top = {6000, 12000, 12000.2};
  series.bottom = {0, 0, 0};
  const std::string bar = barOf({.points = {{0, 0, 0}, {0, 6000, 0}}});
  const std::string longBar = barOf({.points = {{0, 0, 0}, {0, 13000, 0}}});
  EXPECT_EQ(brokenRules(bar + seriesOf(series), kEurocode), Codes{804});
  EXPECT_EQ(brokenRules(longBar + seriesOf(series), kEurocode), Codes{804});
  series.top.back() = 12000;
  EXPECT_EQ(brokenRules(bar + seriesOf(series), kEurocode), Codes{});
}

TEST(DetailingRules, HoldRollersThatAreSaid) {
  DetailingLimits limits = kEurocode;
  EXPECT_EQ(reasonsFor(805, reportOn(cupWith(900, 16), limits)),
            std::vector<std::string>{"the roller is not in the file: --mandrel says it"});
  limits.mandrel = Mandrel{4.0, 0.0};
  EXPECT_EQ(brokenRules(cupWith(900, 16), limits), Codes{});
  EXPECT_EQ(brokenRules(cupWith(900, 20), limits), Codes{805});
  limits.mandrel = Mandrel{0.0, 140.0};
  EXPECT_EQ(brokenRules(cupWith(900, 20), limits), Codes{});
  limits.mandrel = Mandrel{0.0, 139.9};
  EXPECT_EQ(brokenRules(cupWith(900, 20), limits), Codes{805});
  EXPECT_EQ(brokenRules(straightWith(0, 0, 20), limits), Codes{}) << "nothing is bent";
}

TEST(DetailingRules, HoldTheSpacingOfSeries) {
  const auto rulesFor = [](double step, double diameter, std::optional<double> aggregate) {
    DetailingLimits limits = kEurocode;
    limits.aggregate = aggregate;
    return brokenRules(barOf({.points = {{0, 0, 0}, {0, 900, 0}}, .diameter = diameter}) +
                           seriesOf(test::uprightBars(0, 0, 900, 4, step)),
                       limits);
  };
  EXPECT_EQ(rulesFor(32, 12, {}), Codes{}) << "20 mm";
  EXPECT_EQ(rulesFor(31.8, 12, {}), Codes{806});
  EXPECT_EQ(rulesFor(50, 25, {}), Codes{}) << "d";
  EXPECT_EQ(rulesFor(49.8, 25, {}), Codes{806});
  EXPECT_EQ(rulesFor(49, 12, 32), Codes{}) << "the aggregate and 5 mm";
  EXPECT_EQ(rulesFor(48.8, 12, 32), Codes{806});
}

// A beam of 300 by 500 with an end-on bar in its corner.
std::string barInBeam(double x, double y, double diameter = 20) {
  return test::concreteOf(0, 0, 300, 500) +
         barOf({.className = "PointBar", .points = {{x, y, 0}}, .diameter = diameter});
}

TEST(DetailingRules, HoldTheCover) {
  DetailingLimits limits = kEurocode;
  limits.cover = 30;
  EXPECT_EQ(brokenRules(barInBeam(40, 40), limits), Codes{});
  EXPECT_EQ(brokenRules(barInBeam(40, 39.8), limits), Codes{807});
  EXPECT_EQ(brokenRules(barInBeam(260.2, 250), limits), Codes{807});
  EXPECT_EQ(brokenRules(barInBeam(40, 39.8), kEurocode), Codes{});
  EXPECT_EQ(
      reasonsFor(807, reportOn(barInBeam(40, 40), kEurocode)),
      std::vector<std::string>{"the cover that is wanted is not in the file: --cover says it"});
}

// An end is flat: the thickness of the bar does not count there.
TEST(DetailingRules, HoldTheCoverOfEndsAndSides) {
  DetailingLimits limits = kEurocode;
  limits.cover = 30;
  const auto rulesFor = [&](const Coordinates& from, const Coordinates& to) {
    return brokenRules(
        test::concreteOf(0, 0, 3000, 500) + barOf({.points = {from, to}, .diameter = 20}), limits);
  };
  EXPECT_EQ(rulesFor({30, 250, 0}, {2970, 250, 0}), Codes{});
  EXPECT_EQ(rulesFor({29.8, 250, 0}, {2970, 250, 0}), Codes{807});
  EXPECT_EQ(rulesFor({500, 40, 0}, {2500, 40, 0}), Codes{});
  EXPECT_EQ(rulesFor({500, 39.8, 0}, {2500, 39.8, 0}), Codes{807});
  EXPECT_EQ(rulesFor({500, 250, 0}, {3500, 250, 0}), Codes{}) << "a starter bar runs through";
  EXPECT_EQ(rulesFor({500, 35, 0}, {3500, 35, 0}), Codes{807}) << "but keeps its cover";
}

TEST(DetailingRules, HoldTheCoverOfRings) {
  DetailingLimits limits = kEurocode;
  limits.cover = 30;
  const auto rulesFor = [&](double radius) {
    return brokenRules(
        test::concreteOf(-300, -300, 300, 300) + barOf({.className = "FrameCirc",
                                                        .points = {{0, 0, 0}, {radius, 0, 0}},
                                                        .hookLength1 = 100,
                                                        .hookAngle1 = 135,
                                                        .radius = radius,
                                                        .diameter = 10}),
        limits);
  };
  EXPECT_EQ(rulesFor(265), Codes{});
  EXPECT_EQ(rulesFor(265.2), Codes{807});
}

TEST(DetailingRules, FindBarsOutsideEveryOutline) {
  EXPECT_EQ(brokenRules(barInBeam(299, 250), kEurocode), Codes{});
  EXPECT_EQ(brokenRules(barInBeam(301, 250), kEurocode), Codes{808});
  EXPECT_EQ(brokenRules(barOf({.className = "PointBar", .points = {{0, 0, 0}}}), kEurocode),
            Codes{})
      << "without formwork";
}

// A bar drawn once more beside the concrete is the same bar.
TEST(DetailingRules, LeaveOutMarksThatAlsoLieInside) {
  const std::string bars =
      barInBeam(150, 250) +
      barOf({.className = "PointBar", .points = {{900, 250, 0}}, .diameter = 20, .index = 2});
  EXPECT_EQ(brokenRules(bars, kEurocode), Codes{});
  EXPECT_EQ(reasonsFor(808, reportOn(bars, kEurocode)),
            std::vector<std::string>{
                "1 bars outside, of marks that also lie inside: they may be drawn apart"});
}

TEST(DetailingRules, TakeTheBoxAroundOutlinesThatAreOpen) {
  const auto rulesFor = [](double x) {
    return brokenRules(test::formworkOf({{{0, 0, 0}, {3000, 0, 0}, {}}}) +
                           test::formworkOf({{{0, 500, 0}, {3000, 500, 0}, {}}}) +
                           barOf({.className = "PointBar", .points = {{x, 250, 0}}}),
                       kEurocode);
  };
  EXPECT_EQ(rulesFor(2999), Codes{});
  EXPECT_EQ(rulesFor(3001), Codes{808});
}

std::string ringOf(double radius, double diameter) {
  return barOf({.className = "FrameCirc",
                .points = {{0, 0, 0}, {radius, 0, 0}},
                .radius = radius,
                .diameter = diameter});
}

TEST(DetailingRules, HoldArcs) {
  DetailingLimits limits = kBritish;
  limits.stock = 100000;
  EXPECT_EQ(brokenRules(ringOf(2750, 8), limits), Codes{});
  EXPECT_EQ(brokenRules(ringOf(2750.2, 8), limits), Codes{809});
  EXPECT_EQ(brokenRules(ringOf(7500, 16), limits), Codes{});
  EXPECT_EQ(brokenRules(ringOf(7500.2, 16), limits), Codes{809});
  EXPECT_EQ(brokenRules(ringOf(9000, 14), limits), Codes{});
  EXPECT_EQ(reasonsFor(809, reportOn(ringOf(9000, 14), limits)),
            std::vector<std::string>{"1 bars of a diameter without a greatest radius"});
}

// A polygon bar that follows a circle: 40 facets of one length.
std::string facetsOf(double radius, double diameter) {
  std::vector<Coordinates> points;
  for (int i = 0; i <= 40; ++i) {
    const double angle = i * std::numbers::pi / 80.0;
    points.push_back({radius * std::cos(angle), radius * std::sin(angle), 0});
  }
  return barOf({.className = "PolygonBar", .points = points, .diameter = diameter});
}

TEST(DetailingRules, TakeFacetsForAnArc) {
  EXPECT_EQ(brokenRules(facetsOf(600, 12), kBritish), Codes{}) << "none of its legs is too short";
  EXPECT_EQ(brokenRules(facetsOf(4250, 12), kBritish), Codes{});
  EXPECT_EQ(brokenRules(facetsOf(4251, 12), kBritish), Codes{809});
}

TEST(DetailingRules, HoldEndsOfSmoothBars) {
  const auto rulesFor = [](double diameter, double angle, const std::string& adherence) {
    BarParts bar = {.points = {{0, 0, 0}, {900, 0, 0}},
                    .hookLength1 = 200,
                    .hookLength2 = 200,
                    .hookAngle1 = angle,
                    .hookAngle2 = angle,
                    .diameter = diameter,
                    .adherence = adherence};
    return brokenRules(barOf(bar), kEurocode);
  };
  EXPECT_EQ(rulesFor(10, 150, "Dx"), Codes{});
  EXPECT_EQ(rulesFor(10, 149, "Dx"), Codes{810});
  EXPECT_EQ(rulesFor(10, 0, "Dx"), Codes{810});
  EXPECT_EQ(rulesFor(8, 0, "Dx"), Codes{});
  EXPECT_EQ(rulesFor(10, 0, "Ha"), Codes{});
}

TEST(DetailingRules, SayClauseValueLimitAndWhatWouldDo) {
  const DetailingReport report = reportOn(frameWith(40, 135, 8), kEurocode);
  ASSERT_EQ(report.findings.size(), 1U);
  const Finding& finding = report.findings.front();
  EXPECT_EQ(finding.className, "CKtZantoFrameRect");
  EXPECT_EQ(finding.item, "HookLength1");
  EXPECT_EQ(finding.found, "40 mm straight behind a bend of 135 degrees");
  EXPECT_EQ(finding.expected, "50 mm at least, the greater of 5 d and 50 mm (EN 1992-1-1, 8.5(2))");
  EXPECT_EQ(finding.remedy(), "make the hook 10 mm longer");
  EXPECT_EQ(finding.breach->clause, "EN 1992-1-1, 8.5(2)");
  EXPECT_DOUBLE_EQ(finding.breach->value, 40);
  EXPECT_DOUBLE_EQ(finding.breach->limit, 50);
}

TEST(DetailingRules, SayOnceWhatHoldsOfEqualBarsOfAMark) {
  std::string bars;
  for (int i = 1; i <= 5; ++i) {
    bars += barOf({.points = {{0, 50.0 * i, 0}, {12500, 50.0 * i, 0}}, .mark = 7, .index = i});
  }
  bars += barOf({.points = {{0, 0, 0}, {12600, 0, 0}}, .mark = 7, .index = 6});
  const DetailingReport report = reportOn(bars, kEurocode);
  ASSERT_EQ(report.findings.size(), 2U);
  EXPECT_EQ(report.findings[0].index, "1");
  EXPECT_EQ(report.findings[0].found, "12500 mm along the centre line; so with 4 more of mark 7");
  EXPECT_EQ(report.findings[1].found, "12600 mm along the centre line");
}

TEST(DetailingRules, TakeLengthsInTheUnitOfTheDrawing) {
  DetailingLimits limits = kEurocode;
  limits.unit = &kLengthUnits[2];
  const auto bar = [](double length) {
    return barOf({.points = {{0, 0, 0}, {length, 0, 0}}, .diameter = 0.01});
  };
  EXPECT_EQ(brokenRules(bar(12.0), limits), Codes{});
  EXPECT_EQ(brokenRules(bar(12.001), limits), Codes{804});
}

TEST(DetailingRules, LeaveOutThoseOfTheOtherStandard) {
  for (const int code : {802, 803, 809}) {
    EXPECT_EQ(reasonsFor(code, reportOn("", kEurocode)).size(), 1U) << code;
    EXPECT_TRUE(reasonsFor(code, reportOn("", kBritish)).empty()) << code;
  }
  for (const int code : {801, 806, 810}) {
    EXPECT_FALSE(reasonsFor(code, reportOn("", kBritish)).empty()) << code;
  }
}

TEST(DetailingRules, PassOverElementsWithErrors) {
  std::string bar = barOf({.points = {{0, 0, 0}, {13000, 0, 0}}});
  EXPECT_EQ(brokenRules(bar, kEurocode), Codes{804});
  bar.replace(bar.find("13000"), 5, "13x00");
  EXPECT_EQ(brokenRules(bar, kEurocode), Codes{});
}

TEST(DetailingRules, SaySomethingOfNumbersThatAreNone) {
  for (const double value : {1e300, -1e300, 1e18}) {
    const std::string bars = straightWith(value, 90, 12) + ringOf(value, 8) +
                             test::formworkOf({{{0, 0, 0}, {value, value, 0}, {value, 0, 0}}});
    EXPECT_NO_THROW(reportOn(bars, kBritish)) << value;
  }
}

}  // namespace

}  // namespace quorvan::tool
