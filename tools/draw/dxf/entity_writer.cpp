#include <tools/draw/dxf/entity_writer.h>

#include <cmath>
#include <numbers>

namespace quorvan::tool {

namespace {

constexpr double kFullTurn = 360.0;

// From 0 up to a full turn.
double degrees(double radians) {
  const double angle = std::fmod(radians * 180.0 / std::numbers::pi, kFullTurn);
  const double positive = angle < 0.0 ? angle + kFullTurn : angle;
  return positive >= kFullTurn - 1e-9 ? 0.0 : positive;
}

double directionAngle(PlanePoint direction) {
  return degrees(std::atan2(direction.y, direction.x));
}

int horizontal(AlignX align) {
  return static_cast<int>(align);
}

int vertical(AlignY align) {
  constexpr int kMiddle = 2;
  constexpr int kTop = 3;
  return align == AlignY::kMiddle ? kMiddle : align == AlignY::kTop ? kTop : 0;
}

}  // namespace

void EntityWriter::subclass(std::string_view name) {
  if (!isR12()) {
    m_out.text(100, name);
  }
}

void EntityWriter::head(std::string_view type, const EntityLook& look) {
  m_out.text(0, type);
  if (!isR12()) {
    m_out.identity(m_handles.next(), m_owner, "AcDbEntity");
  }
  m_out.text(8, look.layer);
  if (look.color != kByLayer) {
    m_out.integer(62, look.color);
  }
}

void EntityWriter::begin(std::string_view type, std::string_view subclass, const EntityLook& look) {
  head(type, look);
  this->subclass(subclass);
}

void EntityWriter::point(const EntityLook& look, PlanePoint at) {
  begin("POINT", "AcDbPoint", look);
  m_out.point(10, at);
  m_out.made(look.data);
}

void EntityWriter::line(const EntityLook& look, PlanePoint from, PlanePoint to) {
  begin("LINE", "AcDbLine", look);
  m_out.point(10, from);
  m_out.point(11, to);
  m_out.made(look.data);
}

void EntityWriter::circle(const EntityLook& look, PlanePoint center, double radius) {
  begin("CIRCLE", "AcDbCircle", look);
  m_out.point(10, center);
  m_out.number(40, radius);
  m_out.made(look.data);
}

void EntityWriter::way(const EntityLook& look, const BulgeWay& way) {
  if (!way.isArc()) {
    return line(look, way.from, way.to);
  }
  begin("ARC", "AcDbCircle", look);
  m_out.point(10, way.center);
  m_out.number(40, way.radius);
  subclass("AcDbArc");
  // From begin to end an arc goes to the left.
  const bool isLeft = way.sweep > 0.0;
  m_out.number(50, directionAngle((isLeft ? way.from : way.to) - way.center));
  m_out.number(51, directionAngle((isLeft ? way.to : way.from) - way.center));
  m_out.made(look.data);
}

void EntityWriter::polyline(const EntityLook& look, const BulgePath& path, double width) {
  if (isR12()) {
    return oldPolyline(look, path, width);
  }
  begin("LWPOLYLINE", "AcDbPolyline", look);
  m_out.integer(90, static_cast<std::int64_t>(path.vertices.size()));
  m_out.integer(70, path.isClosed ? 1 : 0);
  m_out.number(43, width);
  for (const BulgeVertex& vertex : path.vertices) {
    m_out.planePoint(10, vertex.at);
    if (vertex.bulge != 0.0) {
      m_out.ratio(42, vertex.bulge);
    }
  }
  m_out.made(look.data);
}

void EntityWriter::oldPolyline(const EntityLook& look, const BulgePath& path, double width) {
  head("POLYLINE", look);
  m_out.integer(66, 1);
  m_out.point(10, {});
  m_out.integer(70, path.isClosed ? 1 : 0);
  if (width != 0.0) {
    m_out.number(40, width);
    m_out.number(41, width);
  }
  m_out.made(look.data);
  for (const BulgeVertex& vertex : path.vertices) {
    m_out.text(0, "VERTEX");
    m_out.text(8, look.layer);
    m_out.point(10, vertex.at);
    if (vertex.bulge != 0.0) {
      m_out.ratio(42, vertex.bulge);
    }
  }
  m_out.text(0, "SEQEND");
  m_out.text(8, look.layer);
}

// A text that is not left on its base line goes by its second point.
void EntityWriter::text(const EntityLook& look, const Lettering& lettering, std::string_view text,
                        PlanePoint begin) {
  const int x = horizontal(lettering.alignX);
  const int y = vertical(lettering.alignY);
  const bool isAligned = x != 0 || y != 0;
  this->begin("TEXT", "AcDbText", look);
  m_out.point(10, isAligned ? begin : lettering.at);
  m_out.number(40, lettering.height);
  m_out.text(1, text);
  if (const double angle = degrees(lettering.angle); angle != 0.0) {
    m_out.number(50, angle);
  }
  m_out.text(7, "STANDARD");
  if (isAligned) {
    m_out.integer(72, x);
    m_out.point(11, lettering.at);
  }
  subclass("AcDbText");
  if (y != 0) {
    m_out.integer(73, y);
  }
  m_out.made(look.data);
}

void EntityWriter::insert(const EntityLook& look, std::string_view block, PlanePoint at) {
  begin("INSERT", "AcDbBlockReference", look);
  m_out.text(2, block);
  m_out.point(10, at);
  m_out.made(look.data);
}

// The corners go crosswise: the third lies beside the first.
void EntityWriter::solid(const EntityLook& look, const FillPiece& piece) {
  begin("SOLID", "AcDbTrace", look);
  m_out.point(10, piece[0]);
  m_out.point(11, piece[1]);
  m_out.point(12, piece[3]);
  m_out.point(13, piece[2]);
  m_out.made(look.data);
}

void EntityWriter::hatch(const EntityLook& look, const BulgePath& outline) {
  begin("HATCH", "AcDbHatch", look);
  m_out.point(10, {});
  m_out.planePoint(210, {});
  m_out.number(230, 1.0);
  m_out.text(2, "SOLID");
  m_out.integer(70, 1);
  m_out.integer(71, 0);
  m_out.integer(91, 1);
  constexpr int kOuterPolyline = 3;
  m_out.integer(92, kOuterPolyline);
  bool hasBulge = false;
  for (const BulgeVertex& vertex : outline.vertices) {
    hasBulge = hasBulge || vertex.bulge != 0.0;
  }
  m_out.integer(72, hasBulge ? 1 : 0);
  m_out.integer(73, 1);
  m_out.integer(93, static_cast<std::int64_t>(outline.vertices.size()));
  for (const BulgeVertex& vertex : outline.vertices) {
    m_out.planePoint(10, vertex.at);
    if (hasBulge) {
      m_out.ratio(42, vertex.bulge);
    }
  }
  m_out.integer(97, 0);
  m_out.integer(75, 0);
  m_out.integer(76, 1);
  m_out.integer(98, 1);
  m_out.planePoint(10, outline.vertices.front().at);
  m_out.made(look.data);
}

void EntityWriter::disc(const EntityLook& look, PlanePoint center, double radius) {
  // Two half turns: for the polyline halfway out, so that its width reaches centre and edge.
  const PlanePoint out{isR12() ? radius / 2.0 : radius, 0.0};
  const BulgePath ring{{{center - out, 1.0}, {center + out, 1.0}}, true};
  if (isR12()) {
    return oldPolyline(look, ring, radius);
  }
  hatch(look, ring);
}

}  // namespace quorvan::tool
