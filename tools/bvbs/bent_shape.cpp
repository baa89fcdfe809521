#include <tools/bvbs/bent_shape.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quorvan::tool::bvbs {

namespace {

constexpr double kInRadians = std::numbers::pi / 180.0;
constexpr double kRight = 90.0;

// How much of a leg, from its outermost point, lies in the bend at its end.
double bendShare(double degrees, double diameter, double roller) {
  const double angle = std::min(std::abs(degrees), kRight) * kInRadians;
  return (roller / 2.0 + diameter) * std::tan(angle / 2.0);
}

class LegReader {
 public:
  LegReader(const Block& geometry, bool isHelix) : m_geometry(geometry), m_isHelix(isHelix) {}

  BentShape read() {
    for (const Field& field : m_geometry.fields) {
      if (m_isHelix && (field.letter == 'n' || field.letter == 'g')) {
        m_state = State::kTurns;
        static_cast<void>(numberOf(field));
      } else if (field.letter == 'l' || field.letter == 'r') {
        addLeg(field);
      } else if (field.letter == 'w') {
        addAngle(field);
      } else {
        fault(ShapeFaultKind::kStrangeField, field);
      }
    }
    close();
    return std::move(m_shape);
  }

 private:
  enum class State : std::uint8_t { kLeg, kAngle, kMayBend, kTurns };

  void fault(ShapeFaultKind kind, const Field& field) {
    m_shape.faults.push_back({kind, field.letter, field.at});
  }

  double numberOf(const Field& field) {
    const std::optional<double> number = numberIn(field.value);
    if (!number) {
      fault(ShapeFaultKind::kNoNumber, field);
    }
    return number.value_or(0.0);
  }

  void addLeg(const Field& field) {
    if (m_state == State::kAngle) {
      m_shape.faults.push_back({ShapeFaultKind::kNoAngle, m_last.letter, m_last.at});
    } else if (m_state == State::kTurns) {
      return fault(ShapeFaultKind::kStrangeField, field);
    }
    const std::size_t before = m_shape.faults.size();
    const double length = numberOf(field);
    if (!(length > 0.0) && m_shape.faults.size() == before) {
      fault(ShapeFaultKind::kNoLength, field);
    }
    m_shape.legs.push_back({field.letter == 'r', length, 0.0, 0.0, field.at, field.at});
    m_last = field;
    m_state = State::kAngle;
  }

  void addAngle(const Field& field) {
    if (m_state != State::kAngle && m_state != State::kMayBend) {
      return fault(ShapeFaultKind::kStrangeField, field);
    }
    ShapeLeg& leg = m_shape.legs.back();
    const double angle = numberOf(field);
    if (leg.isArc && m_state == State::kAngle) {
      leg.angle = angle;
      m_state = State::kMayBend;
      return;
    }
    leg.bend = angle;
    leg.bendAt = field.at;
    m_state = State::kLeg;
  }

  void close() {
    if (m_state == State::kAngle) {
      m_shape.faults.push_back({ShapeFaultKind::kNoAngle, m_last.letter, m_last.at});
    }
    if (!m_shape.legs.empty() && m_shape.legs.back().bend != 0.0) {
      m_shape.faults.push_back({ShapeFaultKind::kBendAtEnd, 'w', m_shape.legs.back().bendAt});
    }
  }

  const Block& m_geometry;
  bool m_isHelix;
  State m_state = State::kLeg;
  Field m_last{};
  BentShape m_shape;
};

double lengthOf(const std::array<double, 3>& way) {
  return std::hypot(way[0], way[1], way[2]);
}

double turnBetween(const std::array<double, 3>& in, const std::array<double, 3>& out) {
  const double along = in[0] * out[0] + in[1] * out[1] + in[2] * out[2];
  const double across = std::hypot(in[1] * out[2] - in[2] * out[1], in[2] * out[0] - in[0] * out[2],
                                   in[0] * out[1] - in[1] * out[0]);
  return std::atan2(across, along) / kInRadians;
}

// One x, y and z after the other for each leg.
BentShape readPoints(const Block& geometry) {
  constexpr std::string_view kAxes = "xyz";
  BentShape shape;
  std::array<double, 3> offset{};
  std::size_t axis = 0;
  std::size_t begin = 0;
  for (const Field& field : geometry.fields) {
    if (field.letter != kAxes[axis]) {
      shape.faults.push_back({ShapeFaultKind::kStrangeField, field.letter, field.at});
      return shape;
    }
    const std::optional<double> number = numberIn(field.value);
    if (!number) {
      shape.faults.push_back({ShapeFaultKind::kNoNumber, field.letter, field.at});
    }
    begin = axis == 0 ? field.at : begin;
    offset[axis] = number.value_or(0.0);
    if (++axis == kAxes.size()) {
      axis = 0;
      const double length = lengthOf(offset);
      if (!(length > 0.0)) {
        shape.faults.push_back({ShapeFaultKind::kNoLength, 'x', begin});
      }
      shape.offsets.push_back(offset);
      shape.legs.push_back({false, length, 0.0, 0.0, begin, begin});
    }
  }
  if (axis != 0) {
    const Field& last = geometry.fields.back();
    shape.faults.push_back({ShapeFaultKind::kNoAngle, last.letter, last.at});
  }
  for (std::size_t i = 1; i < shape.offsets.size(); ++i) {
    shape.legs[i - 1].bend = turnBetween(shape.offsets[i - 1], shape.offsets[i]);
    shape.legs[i - 1].bendAt = shape.legs[i].at;
  }
  return shape;
}

}  // namespace

double ShapeLeg::legLength() const noexcept {
  return isArc ? length * std::abs(angle) * kInRadians : length;
}

double BentShape::legSum() const noexcept {
  double sum = 0.0;
  for (const ShapeLeg& leg : legs) {
    sum += leg.legLength();
  }
  return sum;
}

double BentShape::straightOf(std::size_t leg, double diameter, double roller) const noexcept {
  // Legs are outside dimensions, arcs are of the axis.
  const auto shareOf = [&](double bend) {
    return legs[leg].isArc ? bendShare(bend, 0.0, roller + diameter)
                           : bendShare(bend, diameter, roller);
  };
  double straight = legs[leg].legLength();
  if (leg > 0) {
    straight -= shareOf(legs[leg - 1].bend);
  }
  return straight - shareOf(legs[leg].bend);
}

double BentShape::centreLine(double diameter, double roller) const noexcept {
  double length = 0.0;
  for (std::size_t i = 0; i < legs.size(); ++i) {
    length += straightOf(i, diameter, roller);
    length += (roller + diameter) / 2.0 * std::abs(legs[i].bend) * kInRadians;
  }
  return length;
}

BentShape readShape(const Record& record, const Block& geometry) {
  return record.kind->geometry == GeometryForm::kPoints
             ? readPoints(geometry)
             : LegReader(geometry, record.kind->geometry == GeometryForm::kTurns).read();
}

}  // namespace quorvan::tool::bvbs
