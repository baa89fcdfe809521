#include <gtest/gtest.h>

#include <numbers>

#include <tools/draw/dxf/entity_writer.h>

namespace {

using quorvan::tool::AlignX;
using quorvan::tool::AlignY;
using quorvan::tool::BulgePath;
using quorvan::tool::BulgeWay;
using quorvan::tool::DxfVersion;
using quorvan::tool::EntityLook;
using quorvan::tool::EntityWriter;
using quorvan::tool::GroupText;
using quorvan::tool::Handles;
using quorvan::tool::kByLayer;
using quorvan::tool::Lettering;

constexpr double kWriterPi = std::numbers::pi;
constexpr EntityLook kDxfLook{"LINES", 3, "1001\r\nQUORVAN\r\n"};
constexpr std::string_view kDxfData = "1001 QUORVAN|";

// The groups that come of it, a bar behind each.
template <class Write>
std::string groupsOf(DxfVersion version, const Write& write) {
  GroupText out;
  Handles handles(0xFF);
  EntityWriter writer(version, handles, 0x1F, out);
  write(writer);
  std::string text;
  bool isCode = true;
  const std::string& bytes = out.bytes();
  for (std::size_t at = 0; at < bytes.size(); isCode = !isCode) {
    const std::size_t end = bytes.find("\r\n", at);
    const std::string line = bytes.substr(at, end - at);
    text += isCode ? line.substr(line.find_first_not_of(' ')) + ' ' : line + '|';
    at = end + 2;
  }
  return text;
}

std::string headOf2000(const std::string& type, const std::string& subclass) {
  return "0 " + type + "|5 100|330 1F|100 AcDbEntity|8 LINES|62 3|100 " + subclass + '|';
}

TEST(ToolDxfEntities, WriteALine) {
  const auto line = [](EntityWriter& out) { out.line(kDxfLook, {1, 2}, {3, 4}); };
  const std::string places = "10 1.0|20 2.0|30 0.0|11 3.0|21 4.0|31 0.0|" + std::string(kDxfData);
  EXPECT_EQ(groupsOf(DxfVersion::kR12, line), "0 LINE|8 LINES|62 3|" + places);
  EXPECT_EQ(groupsOf(DxfVersion::k2000, line), headOf2000("LINE", "AcDbLine") + places);
}

TEST(ToolDxfEntities, LeaveTheColourToTheLayer) {
  const auto line = [](EntityWriter& out) { out.point({"BARS_16", kByLayer, {}}, {1, 2}); };
  EXPECT_EQ(groupsOf(DxfVersion::kR12, line), "0 POINT|8 BARS_16|10 1.0|20 2.0|30 0.0|");
}

TEST(ToolDxfEntities, WriteACircle) {
  const auto circle = [](EntityWriter& out) { out.circle(kDxfLook, {1, 2}, 5); };
  EXPECT_EQ(
      groupsOf(DxfVersion::k2000, circle),
      headOf2000("CIRCLE", "AcDbCircle") + "10 1.0|20 2.0|30 0.0|40 5.0|" + std::string(kDxfData));
}

// An arc to the right is written from its end.
TEST(ToolDxfEntities, WriteAnArcToTheLeft) {
  BulgeWay way{{1, 0}, {0, 1}, {0, 0}, 1.0, kWriterPi / 2};
  const auto arc = [&way](EntityWriter& out) { out.way(kDxfLook, way); };
  const std::string expected =
      "0 ARC|8 LINES|62 3|10 0.0|20 0.0|30 0.0|40 1.0|50 0.0|51 90.0|" + std::string(kDxfData);
  EXPECT_EQ(groupsOf(DxfVersion::kR12, arc), expected);
  way = {{0, 1}, {1, 0}, {0, 0}, 1.0, -kWriterPi / 2};
  EXPECT_EQ(groupsOf(DxfVersion::kR12, arc), expected);
  EXPECT_EQ(groupsOf(DxfVersion::k2000, arc),
            headOf2000("ARC", "AcDbCircle") +
                "10 0.0|20 0.0|30 0.0|40 1.0|100 AcDbArc|50 0.0|51 90.0|" + std::string(kDxfData));
}

TEST(ToolDxfEntities, WriteAPolylineWithWidthAndBulge) {
  const BulgePath path{{{{0, 0}, 0.5}, {{10, 0}}}, false};
  const auto polyline = [&path](EntityWriter& out) { out.polyline(kDxfLook, path, 16); };
  EXPECT_EQ(groupsOf(DxfVersion::kR12, polyline),
            "0 POLYLINE|8 LINES|62 3|66 1|10 0.0|20 0.0|30 0.0|70 0|40 16.0|41 16.0|" +
                std::string(kDxfData) +
                "0 VERTEX|8 LINES|10 0.0|20 0.0|30 0.0|42 0.5|"
                "0 VERTEX|8 LINES|10 10.0|20 0.0|30 0.0|0 SEQEND|8 LINES|");
  EXPECT_EQ(groupsOf(DxfVersion::k2000, polyline),
            headOf2000("LWPOLYLINE", "AcDbPolyline") +
                "90 2|70 0|43 16.0|10 0.0|20 0.0|42 0.5|10 10.0|20 0.0|" + std::string(kDxfData));
}

TEST(ToolDxfEntities, CloseAPolyline) {
  const BulgePath path{{{{0, 0}}, {{10, 0}}, {{10, 10}}}, true};
  const auto polyline = [&path](EntityWriter& out) { out.polyline(kDxfLook, path, 0); };
  EXPECT_NE(groupsOf(DxfVersion::kR12, polyline).find("|70 1|1001"), std::string::npos);
  EXPECT_NE(groupsOf(DxfVersion::k2000, polyline).find("|70 1|43 0.0|"), std::string::npos);
}

TEST(ToolDxfEntities, WriteATextOnItsBaseLine) {
  const auto text = [](EntityWriter& out) {
    out.text(kDxfLook, {"x", {5, 6}, 2.5, 0.0}, "x", {0, 0});
  };
  EXPECT_EQ(
      groupsOf(DxfVersion::kR12, text),
      "0 TEXT|8 LINES|62 3|10 5.0|20 6.0|30 0.0|40 2.5|1 x|7 STANDARD|" + std::string(kDxfData));
}

// Every justification but left on the base line goes by the second point.
TEST(ToolDxfEntities, WriteATextInEveryJustification) {
  const int vertical[] = {0, 2, 3};
  for (const int x : {0, 1, 2}) {
    for (const int y : {0, 1, 2}) {
      const Lettering lettering{
          "x", {5, 6}, 2.5, kWriterPi / 6, static_cast<AlignX>(x), static_cast<AlignY>(y)};
      const auto text = [&](EntityWriter& out) { out.text(kDxfLook, lettering, "x", {1, 2}); };
      std::string expected = headOf2000("TEXT", "AcDbText");
      const bool isAligned = x != 0 || y != 0;
      expected += isAligned ? "10 1.0|20 2.0|30 0.0|" : "10 5.0|20 6.0|30 0.0|";
      expected += "40 2.5|1 x|50 30.0|7 STANDARD|";
      expected += isAligned ? "72 " + std::to_string(x) + "|11 5.0|21 6.0|31 0.0|" : "";
      expected += "100 AcDbText|";
      expected += y != 0 ? "73 " + std::to_string(vertical[y]) + '|' : "";
      EXPECT_EQ(groupsOf(DxfVersion::k2000, text), expected + std::string(kDxfData)) << x << y;
    }
  }
}

TEST(ToolDxfEntities, WriteTheAngleOfATextWithinATurn) {
  const auto angled = [](double angle) {
    return groupsOf(DxfVersion::kR12, [angle](EntityWriter& out) {
      out.text(kDxfLook, {"x", {0, 0}, 1.0, angle}, "x", {});
    });
  };
  EXPECT_NE(angled(-kWriterPi / 2).find("|50 270.0|"), std::string::npos);
  EXPECT_NE(angled(5 * kWriterPi).find("|50 180.0|"), std::string::npos);
  EXPECT_EQ(angled(2 * kWriterPi).find("|50 "), std::string::npos);
}

TEST(ToolDxfEntities, PutABlockWhereItLies) {
  const auto insert = [](EntityWriter& out) { out.insert(kDxfLook, "SERIES_1", {3, 4}); };
  EXPECT_EQ(groupsOf(DxfVersion::k2000, insert), headOf2000("INSERT", "AcDbBlockReference") +
                                                     "2 SERIES_1|10 3.0|20 4.0|30 0.0|" +
                                                     std::string(kDxfData));
}

// The corners of a solid go crosswise.
TEST(ToolDxfEntities, WriteASolid) {
  const auto solid = [](EntityWriter& out) {
    out.solid(kDxfLook, {{{0, 0}, {4, 0}, {4, 3}, {0, 3}}});
  };
  EXPECT_EQ(groupsOf(DxfVersion::kR12, solid),
            "0 SOLID|8 LINES|62 3|10 0.0|20 0.0|30 0.0|11 4.0|21 0.0|31 0.0|"
            "12 0.0|22 3.0|32 0.0|13 4.0|23 3.0|33 0.0|" +
                std::string(kDxfData));
}

TEST(ToolDxfEntities, WriteAHatch) {
  const auto hatch = [](EntityWriter& out) {
    out.hatch(kDxfLook, {{{{0, 0}}, {{4, 0}}, {{0, 3}}}, true});
  };
  EXPECT_EQ(
      groupsOf(DxfVersion::k2000, hatch),
      headOf2000("HATCH", "AcDbHatch") +
          "10 0.0|20 0.0|30 0.0|210 0.0|220 0.0|230 1.0|2 SOLID|70 1|71 0|91 1|92 3|72 0|73 1|"
          "93 3|10 0.0|20 0.0|10 4.0|20 0.0|10 0.0|20 3.0|97 0|75 0|76 1|98 1|10 0.0|20 0.0|" +
          std::string(kDxfData));
}

// As wide as the radius, halfway out.
TEST(ToolDxfEntities, WriteADisc) {
  const auto disc = [](EntityWriter& out) { out.disc({"END-ON_16", kByLayer, {}}, {10, 0}, 8); };
  EXPECT_EQ(groupsOf(DxfVersion::kR12, disc),
            "0 POLYLINE|8 END-ON_16|66 1|10 0.0|20 0.0|30 0.0|70 1|40 8.0|41 8.0|"
            "0 VERTEX|8 END-ON_16|10 6.0|20 0.0|30 0.0|42 1.0|"
            "0 VERTEX|8 END-ON_16|10 14.0|20 0.0|30 0.0|42 1.0|0 SEQEND|8 END-ON_16|");
  EXPECT_NE(groupsOf(DxfVersion::k2000, disc)
                .find("|72 1|73 1|93 2|10 2.0|20 0.0|42 1.0|10 18.0|20 0.0|42 1.0|"),
            std::string::npos);
}

TEST(ToolDxfEntities, HaveAHandleEach) {
  const auto lines = [](EntityWriter& out) {
    out.point(kDxfLook, {0, 0});
    out.point(kDxfLook, {0, 0});
  };
  const std::string groups = groupsOf(DxfVersion::k2000, lines);
  EXPECT_NE(groups.find("|5 100|"), std::string::npos);
  EXPECT_NE(groups.find("|5 101|"), std::string::npos);
}

}  // namespace
