// The library itself: written through the flat functions, read through the element classes.
#include <quorvan/export/export.h>
#include <quorvan/quorvan.h>

#include <filesystem>
#include <stdexcept>

#include <bench/peers.h>

namespace bench {

namespace {

void write(const Line& e) {
  exportLine(e.start.x, e.start.y, e.start.z, e.end.x, e.end.y, e.end.z,
             static_cast<unsigned long>(e.color));
}

void write(const Circle& e) {
  exportCircle(e.center.x, e.center.y, e.center.z, e.radius, static_cast<unsigned long>(e.color));
}

void write(const Text& e) {
  exportText(e.contents.c_str(), e.location.x, e.location.y, e.location.z, e.angle,
             static_cast<unsigned long>(e.color), static_cast<int>(e.justificationX),
             static_cast<int>(e.justificationY), e.height);
}

void write(const Polygon& e) {
  double xs[8];
  double ys[8];
  double zs[8];
  for (std::size_t i = 0; i < e.points.size(); ++i) {
    xs[i] = e.points[i].x;
    ys[i] = e.points[i].y;
    zs[i] = e.points[i].z;
  }
  exportFilledPolygon(static_cast<int>(e.points.size()), xs, ys, zs,
                      static_cast<unsigned long>(e.color));
}

void write(const StraightBar& e) {
  exportBarStraight(e.point1.x, e.point1.y, e.point1.z, e.point2.x, e.point2.y, e.point2.z,
                    e.hookLength1, e.hookLength2, e.hook1Up, e.hook2Up, e.hookAngle1, e.hookAngle2,
                    e.steel.grade.c_str(), e.steel.adherence.c_str(), e.steel.reference,
                    e.steel.diameter, e.steel.hidden);
}

template <class Export>
void writeBent(const BentBar& e, Export exportBar) {
  exportBar(e.point1.x, e.point1.y, e.point1.z, e.point2.x, e.point2.y, e.point2.z, e.point3.x,
            e.point3.y, e.point3.z, e.hookLength1, e.hookAngle1, e.hookLength2, e.hookAngle2,
            e.steel.grade.c_str(), e.steel.adherence.c_str(), e.steel.reference, e.steel.diameter,
            e.steel.hidden);
}

void write(const LBar& e) {
  writeBent(e, exportLBar);
}
void write(const UBar& e) {
  writeBent(e, exportUBar);
}

void write(const Stirrup& e) {
  exportStirrup(e.point1.x, e.point1.y, e.point1.z, e.point2.x, e.point2.y, e.point2.z,
                e.hookLength1, e.hookAngle1, e.steel.grade.c_str(), e.steel.adherence.c_str(),
                e.steel.reference, e.steel.diameter, e.steel.hidden);
}

void write(const FrameRect& e) {
  exportFrameRect(e.point1.x, e.point1.y, e.point1.z, e.point2.x, e.point2.y, e.point2.z,
                  e.point3.x, e.point3.y, e.point3.z, e.hookLength1, e.hookAngle1,
                  e.steel.grade.c_str(), e.steel.adherence.c_str(), e.steel.reference,
                  e.steel.diameter, e.steel.hidden);
}

Point fromPoint(const CKtPnt3D& p) {
  return {p.X(), p.Y(), p.Z()};
}

std::wstring fromText(const CString& text) {
  return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

template <class Bar>
Steel steelOf(const Bar& bar) {
  return {fromText(bar.getSteelGrade()), fromText(bar.getAdherence()), bar.getDiameter(),
          bar.getReference(), bar.getHidden()};
}

Element convert(const CKtZantoLine& e) {
  return Line{fromPoint(e.GetStartPoint()), fromPoint(e.GetEndPoint()),
              static_cast<long>(e.GetColor())};
}

Element convert(const CKtZantoCircle& e) {
  return Circle{fromPoint(e.GetCenter()), e.GetRadius(), static_cast<long>(e.GetColor())};
}

Element convert(const CKtZantoText& e) {
  return Text{fromText(e.GetContents()),
              fromPoint(e.GetLocation()),
              e.GetAngle(),
              e.GetHeight(),
              e.GetJustificationX(),
              e.GetJustificationY(),
              static_cast<long>(e.GetColor())};
}

Element convert(const CKtFilledPolygon& e) {
  Polygon polygon;
  for (unsigned int i = 0; i < e.getNbPoints(); ++i) {
    polygon.points.push_back(fromPoint(e.getPointAt(i)));
  }
  polygon.color = static_cast<long>(e.GetColor());
  return polygon;
}

Element convert(const CKtZantoStraightBar& e) {
  return StraightBar{fromPoint(e.getPoint1()), fromPoint(e.getPoint2()), e.getHookLength1(),
                     e.getHookLength2(),       e.getHookAngle1(),        e.getHookAngle2(),
                     e.getHook1Up() != 0.0,    e.getHook2Up() != 0.0,    steelOf(e)};
}

template <class Bar>
BentBar bentOf(const Bar& e) {
  return {fromPoint(e.getPoint1()), fromPoint(e.getPoint2()),
          fromPoint(e.getPoint3()), e.getHookLength1(),
          e.getHookAngle1(),        e.getHookLength2(),
          e.getHookAngle2(),        steelOf(e)};
}

Element convert(const CKtZantoLBar& e) {
  return LBar{bentOf(e)};
}
Element convert(const CKtZantoUBar& e) {
  return UBar{bentOf(e)};
}

Element convert(const CKtZantoStirrup& e) {
  return Stirrup{fromPoint(e.getPoint1()), fromPoint(e.getPoint2()), e.getHookLength1(),
                 e.getHookAngle1(), steelOf(e)};
}

Element convert(const CKtZantoFrameRect& e) {
  return FrameRect{fromPoint(e.getPoint1()), fromPoint(e.getPoint2()), fromPoint(e.getPoint3()),
                   e.getHookLength1(),       e.getHookAngle1(),        steelOf(e)};
}

template <class Class>
std::uint64_t readClass(CKtFiler& filer) {
  std::uint64_t sum = 0;
  Class element;
  while (element.fileIn(&filer) != 0) {
    sum += checksum(convert(element));
  }
  return sum;
}

}  // namespace

void writeQuorvan(const Drawing& drawing, const std::string& path) {
  std::filesystem::remove(path);
  startFiling(std::filesystem::path(path).wstring().c_str());
  for (const Element& element : drawing.elements) {
    std::visit([](const auto& e) { write(e); }, element);
  }
  endFiling(drawing.control.version.c_str(), drawing.control.servicePack,
            drawing.control.name.c_str(), static_cast<int>(drawing.control.checkSum));
}

std::uint64_t readQuorvan(const std::string& path) {
  CKtFiler filer;
  if (filer.newFiler(std::filesystem::path(path).wstring().c_str()) == 0) {
    throw std::runtime_error("cannot open " + path);
  }
  const std::uint64_t sum = readClass<CKtZantoLine>(filer) + readClass<CKtZantoCircle>(filer) +
                            readClass<CKtZantoText>(filer) + readClass<CKtFilledPolygon>(filer) +
                            readClass<CKtZantoStraightBar>(filer) + readClass<CKtZantoLBar>(filer) +
                            readClass<CKtZantoUBar>(filer) + readClass<CKtZantoStirrup>(filer) +
                            readClass<CKtZantoFrameRect>(filer);
  // A filer saves what it read when it goes. Reading is what is measured, so the file that it
  // would save over is taken from it: opening an empty name leaves nothing to save.
  filer.newFiler(L"");
  return sum;
}

}  // namespace bench
