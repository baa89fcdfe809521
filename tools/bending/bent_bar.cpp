#include <tools/bending/bent_bar.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include <tools/bending/corner_line.h>

namespace quorvan::tool {

namespace {

constexpr double kRightAngle = std::numbers::pi / 2.0;
constexpr double kSharpest = std::numbers::pi * 0.999;  // a corner of the axis cannot turn back

// By how much the outermost point of the bend lies beyond the corner of the axis.
double beyond(const Bend& bend, double diameter) {
  if (bend.angle <= kRightAngle) {
    return diameter / 2.0 * std::tan(bend.angle / 2.0);
  }
  return bend.radius - bend.reach() + diameter / 2.0;
}

class Bender {
 public:
  Bender(BentBar& bent, const BendingRules& rules) : m_bent(bent), m_rules(rules) {}

  void bendAll() {
    lengthenHooks();
    for (std::size_t i = 0; i < m_bent.legs.size(); ++i) {
      m_bent.legs[i].room = m_bent.legs[i].axis;
      for (const Bend* const bend : around(i)) {
        m_bent.legs[i].room -= bend->reach();
      }
    }
    giveRoom();
    for (std::size_t i = 0; i < m_bent.legs.size(); ++i) {
      Leg& leg = m_bent.legs[i];
      leg.straight = leg.axis;
      leg.outside = leg.axis;
      for (const Bend* const bend : around(i)) {
        leg.straight -= bend->reach();
        leg.outside += beyond(*bend, m_bent.diameter);
      }
    }
  }

 private:
  // The bends at the ends of a leg.
  [[nodiscard]] std::vector<Bend*> around(std::size_t leg) {
    std::vector<Bend*> bends;
    if (leg > 0) {
      bends.push_back(&m_bent.bends[leg - 1]);
    }
    if (leg < m_bent.bends.size()) {
      bends.push_back(&m_bent.bends[leg]);
    }
    return bends;
  }

  // Where the file gives the straight part, the leg begins at the corner before it.
  void lengthenHooks() {
    if (m_rules.hooks != HookMeaning::kStraight) {
      return;
    }
    if (m_bent.beginsWithHook) {
      m_bent.legs.front().axis += m_bent.bends.front().reach();
    }
    if (m_bent.endsWithHook) {
      m_bent.legs.back().axis += m_bent.bends.back().reach();
    }
  }

  // Bends that overlap on a leg share it by their reach.
  void giveRoom() {
    constexpr double kTolerance = 1e-9;
    std::vector<double> shares(m_bent.bends.size(), 1.0);
    for (std::size_t i = 0; i < m_bent.legs.size(); ++i) {
      const double wanted = m_bent.legs[i].axis - m_bent.legs[i].room;
      if (!(wanted > m_bent.legs[i].axis * (1.0 + kTolerance))) {
        continue;
      }
      m_bent.fits = false;
      const double share = m_bent.legs[i].axis / wanted;
      for (const Bend* const bend : around(i)) {
        double& least = shares[static_cast<std::size_t>(bend - m_bent.bends.data())];
        least = std::min(least, share);
      }
    }
    for (std::size_t i = 0; i < shares.size(); ++i) {
      m_bent.bends[i].radius *= shares[i];
    }
  }

  BentBar& m_bent;
  const BendingRules& m_rules;
};

void setLine(BentBar& bent, const Bar& bar, const LengthUnit& unit, const BendingRules& rules) {
  CornerLine line = cornerLineOf(bar, rules.angles);
  const double radius = (bent.roller + bent.diameter) / 2.0;
  for (const double leg : line.legs) {
    bent.legs.push_back({unit.millimetres(leg)});
  }
  for (const Corner& corner : line.corners) {
    bent.bends.push_back({corner.angle, corner.isLeft, corner.isHook, radius});
  }
  bent.beginsWithHook = line.beginsWithHook;
  bent.endsWithHook = line.endsWithHook;
  bent.axis = std::move(line.axis);
  bent.course = std::move(line.course);
}

void setRing(BentBar& bent, const Bar& bar, const LengthUnit& unit, const BendingRules& rules) {
  bent.ringRadius =
      unit.millimetres(bar.radius) + (rules.ring == RingRadius::kInner ? bent.diameter / 2.0 : 0.0);
  bent.overlap = unit.millimetres(bar.overlap);
  const double radius = (bent.roller + bent.diameter) / 2.0;
  Leg ring{2.0 * std::numbers::pi * bent.ringRadius + bent.overlap};
  ring.isArc = true;
  bent.legs = {ring};
  for (const bool atStart : {true, false}) {
    const Hook& hook = bar.hooks[atStart ? 0 : 1];
    const double angle = inRadians(hook.angle, rules.angles);
    if (!(hook.length > 0.0)) {
      continue;
    }
    (atStart ? bent.beginsWithHook : bent.endsWithHook) = true;
    bent.legs.insert(atStart ? bent.legs.begin() : bent.legs.end(),
                     {unit.millimetres(hook.length)});
    bent.bends.insert(atStart ? bent.bends.begin() : bent.bends.end(),
                      Bend{std::abs(angle), angle >= 0.0, true, radius});
  }
}

// The short sides of a stirrup are not in the file: no narrower than the bends allow.
void setWidth(BentBar& bent) {
  bent.isLowerBound = true;
  const std::size_t first = bent.beginsWithHook ? 1 : 0;
  for (const std::size_t leg : {first + 1, first + 3}) {
    bent.legs[leg].isUnknown = true;
    bent.legs[leg].axis = bent.roller + bent.diameter;
  }
}

// A shape reads the same from whichever side: the first bend goes to the left.
void turnOver(BentBar& bent) {
  if (bent.bends.empty() || bent.bends.front().isLeft) {
    return;
  }
  bent.isTurnedOver = true;
  for (Bend& bend : bent.bends) {
    bend.isLeft = !bend.isLeft;
  }
  for (Leg& leg : bent.legs) {
    leg.isLeft = !leg.isLeft;
  }
}

}  // namespace

double Bend::reach() const noexcept {
  const double limit = isHook ? kRightAngle : kSharpest;
  return radius * std::tan(std::min(angle, limit) / 2.0);
}

double BentBar::axisLength() const noexcept {
  double length = 0.0;
  for (const Leg& leg : legs) {
    length += leg.isUnknown ? 0.0 : leg.axis;
  }
  return length;
}

double BentBar::centreLine() const noexcept {
  double length = 0.0;
  for (const Leg& leg : legs) {
    length += leg.straight;
  }
  for (const Bend& bend : bends) {
    length += bend.radius * bend.angle;
  }
  return length;
}

BentBar bend(const Bar& bar, const LengthUnit& unit, const BendingRules& rules) {
  BentBar bent;
  bent.shape = bar.shape;
  bent.diameter = unit.millimetres(bar.diameter);
  bent.roller = rollerOf(bent.diameter, rules);
  if (!bar.hasLength()) {
    return bent;
  }
  if (bar.shape == BarShape::kFrameCirc) {
    setRing(bent, bar, unit, rules);
  } else {
    setLine(bent, bar, unit, rules);
    if (bar.shape == BarShape::kStirrup) {
      setWidth(bent);
    }
  }
  Bender(bent, rules).bendAll();
  turnOver(bent);
  return bent;
}

}  // namespace quorvan::tool
