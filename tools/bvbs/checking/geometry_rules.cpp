#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include <tools/bvbs/bent_shape.h>
#include <tools/bvbs/checking/abs_findings.h>
#include <tools/bvbs/checking/record_sink.h>
#include <tools/text/number_text.h>

namespace quorvan::tool::bvbs {

namespace {

constexpr double kSteel = 7850.0;  // kg/m3

std::string millimetres(double value) {
  return rounded(value, 1) + " mm";
}

std::string_view expectedAt(ShapeFaultKind fault) {
  switch (fault) {
    case ShapeFaultKind::kStrangeField:
      return "a field of this geometry in its place";
    case ShapeFaultKind::kNoNumber:
      return "a number";
    case ShapeFaultKind::kNoAngle:
      return "the bend behind it";
    case ShapeFaultKind::kBendAtEnd:
      return "w0 at the end";
    case ShapeFaultKind::kNoLength:
      return "more than 0";
  }
  return {};
}

void reportFault(const Block& geometry, const ShapeFault& fault, RecordSink& sink) {
  const FindingKind& kind = fault.kind == ShapeFaultKind::kNoNumber   ? findings::kNoNumber
                            : fault.kind == ShapeFaultKind::kNoLength ? findings::kOutOfRange
                                                                      : findings::kShape;
  std::string found(1, fault.letter);
  for (const Field& field : geometry.fields) {
    if (field.at == fault.at) {
      found += field.value;
    }
  }
  sink.add(kind, fault.at, std::string("G ") + fault.letter, found,
           std::string(expectedAt(fault.kind)));
}

void reportCommas(const Block& geometry, RecordSink& sink) {
  const auto comma = std::ranges::find_if(geometry.fields, [](const Field& field) {
    return numberIn(field.value) && field.value.find(',') != std::string_view::npos;
  });
  if (comma != geometry.fields.end()) {
    sink.add(findings::kDecimalComma, comma->at, std::string("G ") + comma->letter,
             std::string(comma->value), "a point");
  }
}

// What the header says of the bar, where it does.
struct HeaderBar {
  std::optional<double> length;
  std::optional<double> mass;
  std::optional<double> diameter;
  std::optional<double> roller;
};

HeaderBar barOf(const Record& record) {
  return {numberIn(record.header('l')), numberIn(record.header('e')), numberIn(record.header('d')),
          numberIn(record.header('s'))};
}

void checkBends(const BentShape& shape, const HeaderBar& bar, RecordSink& sink) {
  constexpr double kRounding = 1.0;  // mm: legs are whole millimetres
  if (!bar.diameter || !bar.roller) {
    return;
  }
  for (std::size_t i = 0; i < shape.legs.size(); ++i) {
    const ShapeLeg& leg = shape.legs[i];
    if (leg.isArc && leg.length < *bar.roller / 2.0) {
      sink.add(findings::kRadius, leg.at, "G r", millimetres(leg.length),
               millimetres(*bar.roller / 2.0) + " or more");
    }
    const double straight = shape.straightOf(i, *bar.diameter, *bar.roller);
    if (straight < -kRounding) {
      sink.add(findings::kNoRoom, leg.at, shape.offsets.empty() ? "G l" : "G x",
               millimetres(leg.legLength()),
               millimetres(std::ceil(leg.legLength() - straight)) + " or more");
    }
  }
}

// Half a millimetre a leg is rounded away. Who reckons the centre line by a formula of a standard
// differs by a share of what the bends take.
void checkLength(const Record& record, const BentShape& shape, const HeaderBar& bar,
                 RecordSink& sink) {
  constexpr double kFormulaShare = 0.2;
  if (!bar.length) {
    return;
  }
  const double legs = shape.legSum();
  const double rounding = 1.0 + static_cast<double>(shape.legs.size());
  std::string expected = rounded(legs, 0) + " (legs)";
  bool fits = std::abs(*bar.length - legs) <= rounding;
  if (bar.diameter && bar.roller) {
    const double axis = shape.centreLine(*bar.diameter, *bar.roller);
    fits = fits || std::abs(*bar.length - axis) <= rounding + kFormulaShare * std::abs(legs - axis);
    expected += " or " + rounded(axis, 0) + " (centre line)";
  }
  if (!fits) {
    sink.add(findings::kLength, record.find('H')->find('l')->at, "H l",
             std::string(record.header('l')), expected);
  }
}

}  // namespace

void checkGeometry(const Record& record, const Block& geometry, RecordSink& sink) {
  const GeometryForm form = record.kind->geometry;
  if (form == GeometryForm::kNone) {
    return sink.add(findings::kShape, geometry.at, "G", "G", "no geometry for this kind");
  }
  const BentShape shape = readShape(record, geometry);
  for (const ShapeFault& fault : shape.faults) {
    reportFault(geometry, fault, sink);
  }
  reportCommas(geometry, sink);
  if (!shape.faults.empty() || shape.legs.empty()) {
    if (shape.faults.empty()) {
      sink.add(findings::kShape, geometry.at, "G", "no leg", "a leg at least");
    }
    return;
  }
  const HeaderBar bar = barOf(record);
  checkBends(shape, bar, sink);
  // A helix has its turns in its length, a mesh its own.
  if (form == GeometryForm::kLegs || form == GeometryForm::kPoints) {
    checkLength(record, shape, bar, sink);
  }
}

void checkMass(const Record& record, RecordSink& sink) {
  constexpr double kShare = 0.03;     // tables of masses are rounded
  constexpr double kRounding = 2e-3;  // kg
  const HeaderBar bar = barOf(record);
  if (!bar.length || !bar.mass || !bar.diameter) {
    return;
  }
  const double area = std::numbers::pi / 4.0 * *bar.diameter * *bar.diameter;
  const double expected = area * *bar.length * kSteel * 1e-9;
  if (std::abs(*bar.mass - expected) > kShare * expected + kRounding) {
    sink.add(findings::kMass, record.find('H')->find('e')->at, "H e",
             std::string(record.header('e')), fixed(expected, 3));
  }
}

}  // namespace quorvan::tool::bvbs
