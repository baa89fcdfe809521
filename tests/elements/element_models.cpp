#include <tests/elements/element_models.h>

namespace quorvan::test {

namespace {

// The five items that every bar and link ends with.
template <class Bar>
std::vector<Field<Bar>> withAttributes(std::vector<Field<Bar>> leading) {
  leading.push_back(field("SteelGrade", Form::kText, &Bar::getSteelGrade, &Bar::setSteelGrade));
  leading.push_back(field("Adherence", Form::kAdherence, &Bar::getAdherence, &Bar::setAdherence));
  leading.push_back(field("Diameter", Form::kDouble, &Bar::getDiameter, &Bar::setDiameter));
  leading.push_back(field("Reference", Form::kLong, &Bar::getReference, &Bar::setReference));
  leading.push_back(
      field("Hidden", Form::kFlag, &Bar::getHidden, &Bar::setHidden, WhenMissing::kKeeps));
  return leading;
}

// The bars with two and three legs have the same items.
template <class E>
std::vector<Field<E>> leggedBarFields() {
  return withAttributes<E>(
      {field("Point1", Form::kPoint, &E::getPoint1, &E::setPoint1),
       field("Point2", Form::kPoint, &E::getPoint2, &E::setPoint2),
       field("Point3", Form::kPoint, &E::getPoint3, &E::setPoint3),
       field("HookLength1", Form::kDouble, &E::getHookLength1, &E::setHookLength1),
       field("HookAngle1", Form::kDouble, &E::getHookAngle1, &E::setHookAngle1),
       field("HookLength2", Form::kDouble, &E::getHookLength2, &E::setHookLength2),
       field("HookAngle2", Form::kDouble, &E::getHookAngle2, &E::setHookAngle2)});
}

using Repartition = CKtZantoRepartition;

Field<Repartition> distances(const char* name, const char* stem,
                             void (Repartition::*get)(std::vector<double>&) const,
                             void (Repartition::*set)(std::vector<double>)) {
  return {name,
          Form::kDoubles,
          WhenMissing::kEmpties,
          [get](const Repartition& repartition) {
            std::vector<double> held;
            (repartition.*get)(held);
            return Value(held);
          },
          [set](Repartition& repartition, const Value& value) {
            (repartition.*set)(std::get<std::vector<double>>(value));
          },
          stem};
}

}  // namespace

std::vector<Field<CKtZantoLine>> ElementModel<CKtZantoLine>::fields() {
  using E = CKtZantoLine;
  return {field("Point1", Form::kPoint, &E::GetStartPoint, &E::SetStartPoint),
          field("Point2", Form::kPoint, &E::GetEndPoint, &E::SetEndPoint),
          field("Color", Form::kColor, &E::GetColor, &E::SetColor, WhenMissing::kRepeatsNumber)};
}

std::vector<Field<CKtZantoCircle>> ElementModel<CKtZantoCircle>::fields() {
  using E = CKtZantoCircle;
  return {field("Center", Form::kPoint, &E::GetCenter, &E::SetCenter),
          field("Radius", Form::kDouble, &E::GetRadius, &E::SetRadius),
          field("Color", Form::kColor, &E::GetColor, &E::SetColor, WhenMissing::kRepeatsNumber)};
}

std::vector<Field<CKtZantoText>> ElementModel<CKtZantoText>::fields() {
  using E = CKtZantoText;
  constexpr auto kRepeats = WhenMissing::kRepeatsNumber;
  return {field("Contents", Form::kText, &E::GetContents, &E::SetContents),
          field("Location", Form::kPoint, &E::GetLocation, &E::SetLocation),
          field("Angle", Form::kDouble, &E::GetAngle, &E::SetAngle),
          numberField("JustificationX", &E::GetJustificationX, &E::SetJustificationX, kRepeats),
          numberField("JustificationY", &E::GetJustificationY, &E::SetJustificationY, kRepeats),
          field("Color", Form::kColor, &E::GetColor, &E::SetColor, kRepeats),
          field("Height", Form::kDouble, &E::GetHeight, &E::SetHeight)};
}

std::vector<Field<CKtFilledPolygon>> ElementModel<CKtFilledPolygon>::fields() {
  using E = CKtFilledPolygon;
  const Field<E> points{"Vector", Form::kPoints, WhenMissing::kEmpties,
                        [](const E& polygon) {
                          std::vector<CKtPnt3D> held;
                          polygon.getPoints(held);
                          return Value(held);
                        },
                        [](E& polygon, const Value& value) {
                          polygon.setPoints(std::get<std::vector<CKtPnt3D>>(value));
                        }};
  return {points,
          field("Color", Form::kColor, &E::GetColor, &E::SetColor, WhenMissing::kRepeatsNumber)};
}

std::vector<Field<CKtZantoMesh>> ElementModel<CKtZantoMesh>::fields() {
  using E = CKtZantoMesh;
  return {field("Type", Form::kText, &E::GetType, &E::SetType),
          field("Reference", Form::kText, &E::GetReference, &E::SetReference),
          field("Angle", Form::kDouble, &E::GetAngle, &E::SetAngle),
          field("ExtensionX", Form::kDouble, &E::GetExtX, &E::SetExtX),
          field("ExtensionY", Form::kDouble, &E::GetExtY, &E::SetExtY),
          field("Vector", Form::kPoints, &E::GetPoints, &E::SetPoints, WhenMissing::kEmpties)};
}

std::vector<Field<CKtZantoFormwork>> ElementModel<CKtZantoFormwork>::fields() {
  using E = CKtZantoFormwork;
  return {{"Vector", Form::kSegments, WhenMissing::kEmpties,
           [](const E& formwork) {
             Segments held;
             formwork.getPoints(held.points);
             formwork.getBulges(held.bulges);
             return Value(held);
           },
           [](E& formwork, const Value& value) {
             const auto& segments = std::get<Segments>(value);
             formwork.setPoints(segments.points);
             formwork.setBulges(segments.bulges);
           }}};
}

std::vector<Field<CKtZantoStraightBar>> ElementModel<CKtZantoStraightBar>::fields() {
  using E = CKtZantoStraightBar;
  constexpr auto kRepeats = WhenMissing::kRepeatsFlag;
  return withAttributes<E>(
      {field("Point1", Form::kPoint, &E::getPoint1, &E::setPoint1),
       field("Point2", Form::kPoint, &E::getPoint2, &E::setPoint2),
       field("HookLength1", Form::kDouble, &E::getHookLength1, &E::setHookLength1),
       field("HookLength2", Form::kDouble, &E::getHookLength2, &E::setHookLength2),
       doubleFlag("Hook1Up", Form::kFlag, &E::getHook1Up, &E::setHook1Up, kRepeats),
       doubleFlag("Hook2Up", Form::kFlag, &E::getHook2Up, &E::setHook2Up, kRepeats),
       field("HookAngle1", Form::kDouble, &E::getHookAngle1, &E::setHookAngle1),
       field("HookAngle2", Form::kDouble, &E::getHookAngle2, &E::setHookAngle2)});
}

std::vector<Field<CKtZantoLBar>> ElementModel<CKtZantoLBar>::fields() {
  return leggedBarFields<CKtZantoLBar>();
}

std::vector<Field<CKtZantoUBar>> ElementModel<CKtZantoUBar>::fields() {
  return leggedBarFields<CKtZantoUBar>();
}

std::vector<Field<CKtZantoPin>> ElementModel<CKtZantoPin>::fields() {
  using E = CKtZantoPin;
  return withAttributes<E>(
      {field("Point1", Form::kPoint, &E::getPoint1, &E::setPoint1),
       field("Point2", Form::kPoint, &E::getPoint2, &E::setPoint2),
       field("HookLength1", Form::kDouble, &E::getHookLength1, &E::setHookLength1),
       field("HookLength2", Form::kDouble, &E::getHookLength2, &E::setHookLength2),
       field("HookAngle1", Form::kDouble, &E::getHookAngle1, &E::setHookAngle1),
       field("HookAngle2", Form::kDouble, &E::getHookAngle2, &E::setHookAngle2)});
}

std::vector<Field<CKtZantoPointBar>> ElementModel<CKtZantoPointBar>::fields() {
  using E = CKtZantoPointBar;
  return withAttributes<E>({field("Point1", Form::kPoint, &E::getPoint1, &E::setPoint1)});
}

std::vector<Field<CKtZantoPolygonBar>> ElementModel<CKtZantoPolygonBar>::fields() {
  using E = CKtZantoPolygonBar;
  const Field<E> points{"NoPoints", Form::kNumberedPoints, WhenMissing::kEmptiesAndFails,
                        [](const E& bar) {
                          std::vector<CKtPnt3D> held;
                          for (int i = 0; i < bar.getNoPoints(); ++i) {
                            held.push_back(bar.getPoint(i));
                          }
                          return Value(held);
                        },
                        [](E& bar, const Value& value) {
                          bar.deletePoints();
                          for (const CKtPnt3D& p : std::get<std::vector<CKtPnt3D>>(value)) {
                            bar.addPoint(p);
                          }
                        }};
  return withAttributes<E>(
      {points, field("HookLength1", Form::kDouble, &E::getHookLength1, &E::setHookLength1),
       field("HookLength2", Form::kDouble, &E::getHookLength2, &E::setHookLength2),
       doubleFlag("Side", Form::kSide, &E::getSide, &E::setSide, WhenMissing::kFails),
       field("HookAngle1", Form::kDouble, &E::getHookAngle1, &E::setHookAngle1),
       field("HookAngle2", Form::kDouble, &E::getHookAngle2, &E::setHookAngle2)});
}

std::vector<Field<CKtZantoFrameRect>> ElementModel<CKtZantoFrameRect>::fields() {
  using E = CKtZantoFrameRect;
  return withAttributes<E>(
      {field("Point1", Form::kPoint, &E::getPoint1, &E::setPoint1),
       field("Point2", Form::kPoint, &E::getPoint2, &E::setPoint2),
       field("Point3", Form::kPoint, &E::getPoint3, &E::setPoint3),
       field("HookLength1", Form::kDouble, &E::getHookLength1, &E::setHookLength1),
       field("HookAngle1", Form::kDouble, &E::getHookAngle1, &E::setHookAngle1)});
}

std::vector<Field<CKtZantoFrameCirc>> ElementModel<CKtZantoFrameCirc>::fields() {
  using E = CKtZantoFrameCirc;
  return withAttributes<E>(
      {field("Center", Form::kPoint, &E::getCenter, &E::setCenter),
       field("StartPoint", Form::kPoint, &E::getStartPoint, &E::setStartPoint),
       field("FrameRadius", Form::kDouble, &E::getFrameRadius, &E::setFrameRadius),
       field("RecoverLength", Form::kDouble, &E::getRecoverLength, &E::setRecoverLength),
       field("HookLength1", Form::kDouble, &E::getHookLength1, &E::setHookLength1),
       field("HookAngle1", Form::kDouble, &E::getHookAngle1, &E::setHookAngle1)});
}

std::vector<Field<CKtZantoStirrup>> ElementModel<CKtZantoStirrup>::fields() {
  using E = CKtZantoStirrup;
  return withAttributes<E>(
      {field("Point1", Form::kPoint, &E::getPoint1, &E::setPoint1),
       field("Point2", Form::kPoint, &E::getPoint2, &E::setPoint2),
       field("HookLength1", Form::kDouble, &E::getHookLength1, &E::setHookLength1),
       field("HookAngle1", Form::kDouble, &E::getHookAngle1, &E::setHookAngle1)});
}

std::vector<Field<CKtZantoRepartition>> ElementModel<CKtZantoRepartition>::fields() {
  using E = CKtZantoRepartition;
  return {field("Point1", Form::kPoint, &E::getPoint1, &E::setPoint1),
          field("Point2", Form::kPoint, &E::getPoint2, &E::setPoint2),
          field("Bulge", Form::kVector, &E::getBulge, &E::setBulge),
          numberField("ViewPoint", &E::getViewPoint, &E::setViewPoint, WhenMissing::kKeeps),
          field("Axis", Form::kVector, &E::getAxis, &E::setAxis, WhenMissing::kKeeps),
          distances("AxisDistancesTop", "DistanceTop", &E::getAxisDistancesTop,
                    &E::setAxisDistancesTop),
          distances("AxisDistancesBottom", "DistanceBottom", &E::getAxisDistancesBottom,
                    &E::setAxisDistancesBottom),
          distances("Positions", "Positions", &E::getPositions, &E::setPositions),
          field("DefClassName", Form::kText, &E::getDefClassName, &E::setDefClassName),
          numberField("Index", &E::getIndex, &E::setIndex, WhenMissing::kFails),
          field("Hidden", Form::kFlag, &E::getHidden, &E::setHidden, WhenMissing::kKeeps)};
}

std::vector<Field<CKtDrawingControl>> ElementModel<CKtDrawingControl>::fields() {
  using E = CKtDrawingControl;
  return {field("ZantoVersion", Form::kText, &E::GetZantoVersion, &E::SetZantoVersion),
          field("ServicePack", Form::kLong, &E::GetServicePack, &E::SetServicePack),
          field("CheckSum", Form::kLong, &E::GetCheckSum, &E::SetCheckSum),
          field("DrawingName", Form::kText, &E::GetDrawingName, &E::SetDrawingName)};
}

}  // namespace quorvan::test
