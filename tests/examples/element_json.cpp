#include <tests/examples/element_json.h>

#include <quorvan/text/utf8.h>

#include <string>
#include <vector>

namespace quorvan::test {

namespace {

using Json = nlohmann::json;

Json triple(const CKtPnt3D& point) {
  return {point.X(), point.Y(), point.Z()};
}

Json triple(const CKtVect3D& vector) {
  return {vector.X(), vector.Y(), vector.Z()};
}

Json list(const std::vector<CKtPnt3D>& points) {
  Json result = Json::array();
  for (const CKtPnt3D& point : points) {
    result.push_back(triple(point));
  }
  return result;
}

std::string text(const CString& wide) {
  return toUtf8(wide.view());
}

// What every bar and link ends with.
template <class Bar>
Json withAttributes(const Bar& bar, Json items) {
  items["SteelGrade"] = text(bar.getSteelGrade());
  items["Adherence"] = text(bar.getAdherence());
  items["Diameter"] = bar.getDiameter();
  items["Reference"] = bar.getReference();
  items["Hidden"] = bar.getHidden();
  return items;
}

template <class Bar>
Json withFirstHook(const Bar& bar, Json items) {
  items["HookLength1"] = bar.getHookLength1();
  items["HookAngle1"] = bar.getHookAngle1();
  return withAttributes(bar, std::move(items));
}

template <class Bar>
Json withHooks(const Bar& bar, Json items) {
  items["HookLength2"] = bar.getHookLength2();
  items["HookAngle2"] = bar.getHookAngle2();
  return withFirstHook(bar, std::move(items));
}

template <class Bar>
Json legs(const char* className, const Bar& bar) {
  return withHooks(bar, {{"class", className},
                         {"Point1", triple(bar.getPoint1())},
                         {"Point2", triple(bar.getPoint2())},
                         {"Point3", triple(bar.getPoint3())}});
}

}  // namespace

Json toJson(const CKtZantoLine& line) {
  return {{"class", "CKtZantoLine"},
          {"Point1", triple(line.GetStartPoint())},
          {"Point2", triple(line.GetEndPoint())},
          {"Color", line.GetColor()}};
}

Json toJson(const CKtZantoCircle& circle) {
  return {{"class", "CKtZantoCircle"},
          {"Center", triple(circle.GetCenter())},
          {"Radius", circle.GetRadius()},
          {"Color", circle.GetColor()}};
}

Json toJson(const CKtZantoText& element) {
  return {{"class", "CKtZantoText"},
          {"Contents", text(element.GetContents())},
          {"Location", triple(element.GetLocation())},
          {"Angle", element.GetAngle()},
          {"JustificationX", static_cast<int>(element.GetJustificationX())},
          {"JustificationY", static_cast<int>(element.GetJustificationY())},
          {"Color", element.GetColor()},
          {"Height", element.GetHeight()}};
}

Json toJson(const CKtFilledPolygon& polygon) {
  std::vector<CKtPnt3D> points;
  polygon.getPoints(points);
  return {{"class", "CKtFilledPolygon"}, {"Points", list(points)}, {"Color", polygon.GetColor()}};
}

Json toJson(const CKtZantoMesh& mesh) {
  return {{"class", "CKtZantoMesh"},
          {"Type", text(mesh.GetType())},
          {"Reference", text(mesh.GetReference())},
          {"Angle", mesh.GetAngle()},
          {"ExtensionX", mesh.GetExtX()},
          {"ExtensionY", mesh.GetExtY()},
          {"Points", list(mesh.GetPoints())}};
}

Json toJson(const CKtZantoFormwork& formwork) {
  Json segments = Json::array();
  for (unsigned int k = 0; k < formwork.getNbPoints() / 2; ++k) {
    segments.push_back({{"start", triple(formwork.getPointAt(2 * k))},
                        {"end", triple(formwork.getPointAt(2 * k + 1))},
                        {"bulge", triple(formwork.getBulgeAt(k))}});
  }
  return {{"class", "CKtZantoFormwork"}, {"Segments", segments}};
}

Json toJson(const CKtZantoStraightBar& bar) {
  return withHooks(bar, {{"class", "CKtZantoStraightBar"},
                         {"Point1", triple(bar.getPoint1())},
                         {"Point2", triple(bar.getPoint2())},
                         {"Hook1Up", bar.getHook1Up() != 0},
                         {"Hook2Up", bar.getHook2Up() != 0}});
}

Json toJson(const CKtZantoLBar& bar) {
  return legs("CKtZantoLBar", bar);
}

Json toJson(const CKtZantoUBar& bar) {
  return legs("CKtZantoUBar", bar);
}

Json toJson(const CKtZantoPin& pin) {
  return withHooks(pin, {{"class", "CKtZantoPin"},
                         {"Point1", triple(pin.getPoint1())},
                         {"Point2", triple(pin.getPoint2())}});
}

Json toJson(const CKtZantoPointBar& bar) {
  return withAttributes(bar, {{"class", "CKtZantoPointBar"}, {"Point1", triple(bar.getPoint1())}});
}

Json toJson(const CKtZantoPolygonBar& bar) {
  std::vector<CKtPnt3D> points;
  for (int i = 0; i < bar.getNoPoints(); ++i) {
    points.push_back(bar.getPoint(i));
  }
  return withHooks(
      bar,
      {{"class", "CKtZantoPolygonBar"}, {"Points", list(points)}, {"Side", bar.getSide() != 0}});
}

Json toJson(const CKtZantoFrameRect& frame) {
  return withFirstHook(frame, {{"class", "CKtZantoFrameRect"},
                               {"Point1", triple(frame.getPoint1())},
                               {"Point2", triple(frame.getPoint2())},
                               {"Point3", triple(frame.getPoint3())}});
}

Json toJson(const CKtZantoFrameCirc& frame) {
  return withFirstHook(frame, {{"class", "CKtZantoFrameCirc"},
                               {"Center", triple(frame.getCenter())},
                               {"StartPoint", triple(frame.getStartPoint())},
                               {"FrameRadius", frame.getFrameRadius()},
                               {"RecoverLength", frame.getRecoverLength()}});
}

Json toJson(const CKtZantoStirrup& stirrup) {
  return withFirstHook(stirrup, {{"class", "CKtZantoStirrup"},
                                 {"Point1", triple(stirrup.getPoint1())},
                                 {"Point2", triple(stirrup.getPoint2())}});
}

}  // namespace quorvan::test
