#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include <tools/detailing/detailing_rules.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr double kRightAngle = 90.0;
constexpr double kAnchoringBend = 135.0;
constexpr double kHook = 150.0;

double degreesOf(const Bend& bend) {
  return bend.angle * 180.0 / std::numbers::pi;
}

std::string bendText(double degrees) {
  return "a bend of " + rounded(degrees, 1) + " degrees";
}

// Of Eurocode 2 where it is among the rules.
std::string_view rollerClause(const DetailingLimits& limits) {
  return limits.hasEurocode2 ? "EN 1992-1-1, 8.3(2)" : "BS 8666, table 2";
}

struct End {
  bool isLast;
  bool isHook;
  std::size_t leg;
  std::size_t bend;
};

// The ends behind a bend: the first, then the last.
std::vector<End> endsOf(const BentBar& bent) {
  if (bent.bends.empty()) {
    return {};
  }
  return {{false, bent.beginsWithHook, 0, 0},
          {true, bent.endsWithHook, bent.legs.size() - 1, bent.bends.size() - 1}};
}

// Where an end stands in the file.
std::string_view itemOf(const Bar& bar, const End& end) {
  if (end.isHook) {
    return end.isLast && !bar.isLink() ? "HookLength2" : "HookLength1";
  }
  if (bar.shape == BarShape::kPolygon) {
    return "NoPoints";
  }
  return end.isLast ? "Point3" : "Point1";
}

// The least end projections of the table, which its formula misses by some millimetres.
struct TabledProjection {
  double diameter;
  double least;
};
constexpr TabledProjection kProjections[] = {{6, 110},  {8, 115},  {10, 120}, {12, 125}, {16, 130},
                                             {20, 190}, {25, 240}, {32, 305}, {40, 380}};

struct Range {
  double least;
  double most;
};

// What an end projection must have: where the table and its formula differ, both.
Range projectionOf(const RuledBar& ruled, double degrees) {
  const double d = ruled.least.diameter;
  const double bend = d + ruled.least.roller / 2.0;
  if (ruled.bar.isLink() && degrees < kHook - kAngleSlack) {
    const double least = std::max(10.0 * d, 90.0) + bend;
    return {least, least};
  }
  const double formula = std::max(5.0 * d, 90.0) + bend;
  const auto tabled = std::ranges::find_if(
      kProjections, [d](const auto& one) { return std::abs(one.diameter - d) < 1e-6; });
  if (!ruled.isUsualRoller || tabled == std::end(kProjections)) {
    return {formula, formula};
  }
  return {std::min(formula, tabled->least), std::max(formula, tabled->least)};
}

struct Projection {
  End end;
  double degrees;
  double least;
  double most;
  Range limit;

  [[nodiscard]] bool isShort() const { return most < limit.least - kLengthSlack; }
  [[nodiscard]] bool isEqual(const Projection& other) const {
    return std::abs(most - other.most) < kLengthSlack && limit.least == other.limit.least;
  }
};

// The projections of both ends, of which a link files one.
std::vector<Projection> projectionsOf(const RuledBar& ruled) {
  std::vector<Projection> all;
  for (const End& end : endsOf(ruled.least)) {
    if (ruled.isFacet(end.bend) || ruled.least.legs[end.leg].isArc ||
        (end.isLast && ruled.bar.isLink())) {
      continue;
    }
    const double bend = ruled.least.diameter + ruled.least.roller / 2.0;
    const double degrees = degreesOf(ruled.least.bends[end.bend]);
    all.push_back({end, degrees, ruled.least.legs[end.leg].room + bend,
                   ruled.most.legs[end.leg].room + bend, projectionOf(ruled, degrees)});
  }
  return all;
}

void addProjection(const RuledBar& ruled, const Projection& one, bool isBoth, BreachSink& sink) {
  const double missing = one.limit.least - one.most;
  sink.add(findings::kEndProjection, ruled.subject, itemOf(ruled.bar, one.end),
           inMillimetres(one.most) + " from the outside of " + bendText(one.degrees) +
               (isBoth ? " at both ends" : ""),
           inMillimetres(one.limit.least) + " at least (BS 8666, table 2, P)",
           {"BS 8666, table 2, P", one.most, one.limit.least,
            std::string("make the ") + (one.end.isHook ? "hook " : "leg ") +
                inMillimetres(missing) + " longer"});
}

// A turn back over one roller is drawn as two corners without a straight part between them.
bool isTurnBack(const BentBar& bent, std::size_t leg) {
  constexpr double kMeeting = 1.05;
  const Bend& before = bent.bends[leg - 1];
  const Bend& behind = bent.bends[leg];
  return std::abs(bent.legs[leg].room) <= kMeeting && before.isLeft == behind.isLeft &&
         std::abs(degreesOf(before) - kRightAngle) < kAngleSlack &&
         std::abs(degreesOf(behind) - kRightAngle) < kAngleSlack;
}

}  // namespace

bool RuledBar::isFacet(std::size_t bend) const noexcept {
  return std::ranges::any_of(arcs, [bend](const FacetedArc& arc) {
    return bend >= arc.firstBend && bend <= arc.lastBend;
  });
}

void checkLinkEnd(const RuledBar& ruled, BreachSink& sink) {
  if (!ruled.bar.isLink()) {
    return;
  }
  if (!ruled.least.beginsWithHook) {
    sink.leaveOut(findings::kLinkEnd, "links without a hook in the file", true);
    return;
  }
  const double d = ruled.least.diameter;
  const double degrees = degreesOf(ruled.least.bends.front());
  if (degrees < kRightAngle - kAngleSlack) {
    sink.leaveOut(findings::kLinkEnd, "links with hooks of less than a right angle", true);
    return;
  }
  const bool isAnchored = degrees >= kAnchoringBend - kAngleSlack;
  const double limit = isAnchored ? std::max(5.0 * d, 50.0) : std::max(10.0 * d, 70.0);
  const double most = ruled.most.legs.front().room;
  if (most < limit - kLengthSlack) {
    sink.add(findings::kLinkEnd, ruled.subject, "HookLength1",
             inMillimetres(most) + " straight behind " + bendText(degrees),
             inMillimetres(limit) + " at least, the greater of " +
                 (isAnchored ? "5 d and 50 mm" : "10 d and 70 mm") + " (EN 1992-1-1, 8.5(2))",
             {"EN 1992-1-1, 8.5(2)", most, limit,
              "make the hook " + inMillimetres(limit - most) + " longer"});
  } else if (ruled.least.legs.front().room < limit - kLengthSlack) {
    sink.leaveOut(findings::kLinkEnd,
                  "links whose hooks are long enough only if their length in the file does not "
                  "count the bend: --hooks says it",
                  true);
  }
}

void checkEndProjections(const RuledBar& ruled, BreachSink& sink) {
  const std::vector<Projection> all = projectionsOf(ruled);
  const bool areBoth =
      all.size() == 2 && all[0].isShort() && all[1].isShort() && all[0].isEqual(all[1]);
  for (const Projection& one : all) {
    if (one.isShort()) {
      addProjection(ruled, one, areBoth, sink);
      if (areBoth) {
        return;
      }
    } else if (one.most < one.limit.most - kLengthSlack) {
      sink.leaveOut(findings::kEndProjection,
                    "ends between the value of the table and that of its formula", true);
    } else if (one.least < one.limit.least - kLengthSlack) {
      sink.leaveOut(findings::kEndProjection,
                    "hooks that are long enough only if their length in the file does not count "
                    "the bend: --hooks says it",
                    true);
    }
  }
}

void checkLegs(const RuledBar& ruled, BreachSink& sink) {
  const BentBar& bent = ruled.least;
  const Leg* worst = nullptr;
  for (std::size_t i = 1; i + 1 < bent.legs.size(); ++i) {
    const Leg& leg = bent.legs[i];
    if (leg.isUnknown) {
      sink.leaveOut(findings::kLegBetweenBends, "legs of stirrups whose width is not in the file",
                    true);
      continue;
    }
    const bool isFree =
        leg.isArc || ruled.isFacet(i - 1) || ruled.isFacet(i) || isTurnBack(bent, i);
    if (!isFree && (worst == nullptr || leg.room < worst->room)) {
      worst = &leg;
    }
  }
  const double limit = 4.0 * bent.diameter;
  if (worst != nullptr && worst->room < limit - kLengthSlack) {
    sink.add(findings::kLegBetweenBends, ruled.subject, "",
             inMillimetres(worst->room) + " straight in a leg of " + inMillimetres(worst->axis) +
                 " from corner to corner",
             inMillimetres(limit) + " at least, 4 d (BS 8666, straight between bends)",
             {"BS 8666, straight between bends", worst->room, limit,
              "make the leg " + inMillimetres(limit - worst->room) + " longer"});
  }
}

void checkRoller(const RuledBar& ruled, const DetailingLimits& limits, BreachSink& sink) {
  constexpr double kRollerSlack = 1e-3;
  const BentBar& bent = ruled.least;
  const double limit = usualRoller(bent.diameter);
  bool isBent = false;
  for (std::size_t i = 0; i < bent.bends.size(); ++i) {
    isBent = isBent || !ruled.isFacet(i);
  }
  if (isBent && bent.roller < limit - kRollerSlack) {
    const std::string clause(rollerClause(limits));
    sink.add(findings::kRoller, ruled.subject, "Diameter",
             "a roller of " + inMillimetres(bent.roller) + " for a bar of " +
                 inMillimetres(bent.diameter),
             inMillimetres(limit) + " at least, 4 d up to 16 mm and 7 d above (" + clause + ')',
             {clause, bent.roller, limit, "bend over a roller of " + inMillimetres(limit)});
  }
}

void checkSmoothEnds(const RuledBar& ruled, BreachSink& sink) {
  constexpr double kThickest = 8.0;
  const BentBar& bent = ruled.least;
  if (ruled.bar.adherence != "Dx" || ruled.bar.isLink() ||
      !(bent.diameter > kThickest + kLengthSlack)) {
    return;
  }
  std::array<double, 2> turns{};
  for (const End& end : endsOf(bent)) {
    turns.at(end.isLast ? 1 : 0) = ruled.isFacet(end.bend) ? 0.0 : degreesOf(bent.bends[end.bend]);
  }
  const double least = std::min(turns[0], turns[1]);
  if (least < kHook - kAngleSlack) {
    const bool areBoth = std::abs(turns[0] - turns[1]) < kAngleSlack;
    sink.add(findings::kSmoothEnd, ruled.subject, "Adherence",
             "a smooth bar of " + inMillimetres(bent.diameter) + " that ends " +
                 (least == 0.0 ? "straight" : "in " + bendText(least)) +
                 (areBoth ? " at both ends" : ""),
             "hooks of 150 degrees at least above 8 mm (ENV 1992-1-1, 5.2.3.2)",
             {"ENV 1992-1-1, 5.2.3.2", least, kHook,
              "bend the end by 150 degrees or more, or take a ribbed bar"});
  }
}

}  // namespace quorvan::tool
