#include <tools/drawing/element_exports.h>

#include <quorvan/elements/repartition.h>
#include <quorvan/export/export.h>
#include <quorvan/export/filing/filing_state.h>
#include <quorvan/export/series/repartition_writer.h>
#include <quorvan/text/utf8.h>

#include <tools/console/console.h>

namespace quorvan::tool {

namespace {

// The items of one element by name.
class Items {
 public:
  explicit Items(const ElementInput& element) : m_items(element.items) {}

  [[nodiscard]] const ItemValue& of(std::string_view name) const {
    const ItemValue* const found = findItem(m_items, name);
    if (found == nullptr) {
      throw Failure("no item " + std::string(name));
    }
    return *found;
  }
  [[nodiscard]] const Coordinates& point(std::string_view name) const { return of(name).point; }
  [[nodiscard]] double number(std::string_view name) const { return of(name).number; }
  [[nodiscard]] long whole(std::string_view name) const {
    return static_cast<long>(of(name).integer);
  }
  [[nodiscard]] unsigned long color() const {
    return static_cast<unsigned long>(of("Color").integer & 0xFFFFFFFF);
  }
  [[nodiscard]] bool flag(std::string_view name) const { return of(name).flag; }
  [[nodiscard]] CString text(std::string_view name) const { return fromUtf8(of(name).text); }

 private:
  const std::vector<ItemValue>& m_items;
};

// Points as the flat functions take them.
struct Arrays {
  std::vector<double> xs;
  std::vector<double> ys;
  std::vector<double> zs;

  Arrays() = default;
  explicit Arrays(const std::vector<Coordinates>& points) {
    for (const Coordinates& point : points) {
      add(point);
    }
  }
  void add(const Coordinates& point) {
    xs.push_back(point.x);
    ys.push_back(point.y);
    zs.push_back(point.z);
  }
  [[nodiscard]] int count() const { return static_cast<int>(xs.size()); }
};

// What every bar ends with.
struct BarTail {
  explicit BarTail(const Items& items)
      : grade(items.text("SteelGrade")),
        adherence(items.text("Adherence")),
        reference(items.whole("Reference")),
        diameter(items.number("Diameter")),
        hidden(items.flag("Hidden")) {}

  CString grade;
  CString adherence;
  long reference;
  double diameter;
  bool hidden;
};

void fileLine(const Items& items) {
  const Coordinates& a = items.point("Point1");
  const Coordinates& b = items.point("Point2");
  exportLine(a.x, a.y, a.z, b.x, b.y, b.z, items.color());
}

void fileCircle(const Items& items) {
  const Coordinates& c = items.point("Center");
  exportCircle(c.x, c.y, c.z, items.number("Radius"), items.color());
}

void fileText(const Items& items) {
  const Coordinates& at = items.point("Location");
  exportText(items.text("Contents"), at.x, at.y, at.z, items.number("Angle"), items.color(),
             static_cast<int>(items.whole("JustificationX")),
             static_cast<int>(items.whole("JustificationY")), items.number("Height"));
}

void fileFilledPolygon(const Items& items) {
  const Arrays points(items.of("Vector").points);
  exportFilledPolygon(points.count(), points.xs.data(), points.ys.data(), points.zs.data(),
                      items.color());
}

void fileMesh(const Items& items) {
  const Arrays points(items.of("Vector").points);
  exportMesh(items.text("Reference"), items.text("Type"), items.number("ExtensionX"),
             items.number("ExtensionY"), items.number("Angle"), points.count(), points.xs.data(),
             points.ys.data(), points.zs.data());
}

void fileFormwork(const Items& items) {
  Arrays points;
  Arrays bulges;
  for (const Segment& segment : items.of("Vector").segments) {
    points.add(segment.start);
    points.add(segment.end);
    bulges.add(segment.bulge);
  }
  exportFormwork(points.count(), points.xs.data(), points.ys.data(), points.zs.data(),
                 bulges.xs.data(), bulges.ys.data(), bulges.zs.data());
}

void fileStraightBar(const Items& items) {
  const Coordinates& a = items.point("Point1");
  const Coordinates& b = items.point("Point2");
  const BarTail bar(items);
  exportBarStraight(a.x, a.y, a.z, b.x, b.y, b.z, items.number("HookLength1"),
                    items.number("HookLength2"), items.flag("Hook1Up"), items.flag("Hook2Up"),
                    items.number("HookAngle1"), items.number("HookAngle2"), bar.grade,
                    bar.adherence, bar.reference, bar.diameter, bar.hidden);
}

// The L bar's function and the U bar's take the same arguments.
void fileBentBar(const Items& items, decltype(&exportLBar) function) {
  const Coordinates& a = items.point("Point1");
  const Coordinates& b = items.point("Point2");
  const Coordinates& c = items.point("Point3");
  const BarTail bar(items);
  function(a.x, a.y, a.z, b.x, b.y, b.z, c.x, c.y, c.z, items.number("HookLength1"),
           items.number("HookAngle1"), items.number("HookLength2"), items.number("HookAngle2"),
           bar.grade, bar.adherence, bar.reference, bar.diameter, bar.hidden);
}

void fileLBar(const Items& items) {
  fileBentBar(items, exportLBar);
}

void fileUBar(const Items& items) {
  fileBentBar(items, exportUBar);
}

void filePin(const Items& items) {
  const Coordinates& a = items.point("Point1");
  const Coordinates& b = items.point("Point2");
  const BarTail bar(items);
  exportPin(a.x, a.y, a.z, b.x, b.y, b.z, items.number("HookLength1"), items.number("HookLength2"),
            items.number("HookAngle1"), items.number("HookAngle2"), bar.grade, bar.adherence,
            bar.reference, bar.diameter, bar.hidden);
}

void filePointBar(const Items& items) {
  const Coordinates& a = items.point("Point1");
  const BarTail bar(items);
  exportPointBar(a.x, a.y, a.z, bar.grade, bar.adherence, bar.reference, bar.diameter, bar.hidden);
}

void filePolygonBar(const Items& items) {
  Arrays points(items.of("NoPoints").points);
  const BarTail bar(items);
  exportBarPolygon(points.count(), points.xs.data(), points.ys.data(), points.zs.data(),
                   items.number("HookLength1"), items.number("HookLength2"), items.flag("Side"),
                   items.number("HookAngle1"), items.number("HookAngle2"), bar.grade, bar.adherence,
                   bar.reference, bar.diameter, bar.hidden);
}

void fileFrameRect(const Items& items) {
  const Coordinates& a = items.point("Point1");
  const Coordinates& b = items.point("Point2");
  const Coordinates& c = items.point("Point3");
  const BarTail bar(items);
  exportFrameRect(a.x, a.y, a.z, b.x, b.y, b.z, c.x, c.y, c.z, items.number("HookLength1"),
                  items.number("HookAngle1"), bar.grade, bar.adherence, bar.reference, bar.diameter,
                  bar.hidden);
}

void fileFrameCirc(const Items& items) {
  const Coordinates& c = items.point("Center");
  const Coordinates& s = items.point("StartPoint");
  const BarTail bar(items);
  exportFrameCirc(c.x, c.y, c.z, s.x, s.y, s.z, items.number("FrameRadius"),
                  items.number("RecoverLength"), items.number("HookLength1"),
                  items.number("HookAngle1"), bar.grade, bar.adherence, bar.reference, bar.diameter,
                  bar.hidden);
}

void fileStirrup(const Items& items) {
  const Coordinates& a = items.point("Point1");
  const Coordinates& b = items.point("Point2");
  const BarTail bar(items);
  exportStirrup(a.x, a.y, a.z, b.x, b.y, b.z, items.number("HookLength1"),
                items.number("HookAngle1"), bar.grade, bar.adherence, bar.reference, bar.diameter,
                bar.hidden);
}

CKtPnt3D toPoint(const Coordinates& point) {
  return {point.x, point.y, point.z};
}

CKtVect3D toVector(const Coordinates& vector) {
  return {vector.x, vector.y, vector.z};
}

void fileRepartition(const Items& items) {
  CKtZantoRepartition series;
  series.setPoint1(toPoint(items.point("Point1")));
  series.setPoint2(toPoint(items.point("Point2")));
  series.setBulge(toVector(items.point("Bulge")));
  series.setViewPoint(static_cast<CKtZantoRepartition::eViewPoint>(items.whole("ViewPoint")));
  series.setAxis(toVector(items.point("Axis")));
  series.setAxisDistancesTop(items.of("AxisDistancesTop").numbers);
  series.setAxisDistancesBottom(items.of("AxisDistancesBottom").numbers);
  series.setPositions(items.of("Positions").numbers);
  series.setDefClassName(items.text("DefClassName"));
  series.setIndex(static_cast<int>(items.whole("Index")));
  series.setHidden(items.flag("Hidden"));
  series.fileOut(&theFiler);
}

void fileControl(const Items& items) {
  exportDrawingControl(items.text("ZantoVersion"), items.whole("ServicePack"),
                       items.whole("CheckSum"), items.text("DrawingName"));
}

}  // namespace

void exportElement(const ElementInput& element) {
  const Items items(element);
  switch (element.schema->id) {
    case items::ElementClass::kLine:
      return fileLine(items);
    case items::ElementClass::kCircle:
      return fileCircle(items);
    case items::ElementClass::kText:
      return fileText(items);
    case items::ElementClass::kFilledPolygon:
      return fileFilledPolygon(items);
    case items::ElementClass::kMesh:
      return fileMesh(items);
    case items::ElementClass::kFormwork:
      return fileFormwork(items);
    case items::ElementClass::kStraightBar:
      return fileStraightBar(items);
    case items::ElementClass::kLBar:
      return fileLBar(items);
    case items::ElementClass::kUBar:
      return fileUBar(items);
    case items::ElementClass::kPin:
      return filePin(items);
    case items::ElementClass::kPointBar:
      return filePointBar(items);
    case items::ElementClass::kPolygonBar:
      return filePolygonBar(items);
    case items::ElementClass::kFrameRect:
      return fileFrameRect(items);
    case items::ElementClass::kFrameCirc:
      return fileFrameCirc(items);
    case items::ElementClass::kStirrup:
      return fileStirrup(items);
    case items::ElementClass::kRepartition:
      return fileRepartition(items);
    case items::ElementClass::kDrawingControl:
      return fileControl(items);
  }
}

void pushSeries(const std::vector<FrameInput>& frames) {
  for (const FrameInput& frame : frames) {
    const auto& v = frame.values;
    pushRepartitionFrameRect(v[0], v[1], v[2], v[3], v[4], v[5], fromUtf8(frame.className),
                             frame.hookLength1, frame.hookAngle1, fromUtf8(frame.steelGrade),
                             fromUtf8(frame.adherence), static_cast<long>(frame.reference),
                             frame.diameter, frame.hidden, static_cast<long>(frame.keyC),
                             static_cast<int>(frame.viewPoint), static_cast<int>(frame.lastInt));
  }
}

void fileSeries() {
  writeHeldSeries();
}

}  // namespace quorvan::tool
