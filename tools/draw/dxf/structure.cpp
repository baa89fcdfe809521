#include <tools/draw/dxf/structure.h>

#include <algorithm>
#include <cmath>

#include <tools/draw/dxf/object_section.h>

namespace quorvan::tool {

namespace {

// The tables, by the handles that their records name as their owner.
namespace table {
constexpr std::uint32_t kViewports = 0x1;
constexpr std::uint32_t kLineTypes = 0x2;
constexpr std::uint32_t kLayers = 0x3;
constexpr std::uint32_t kStyles = 0x4;
constexpr std::uint32_t kViews = 0x5;
constexpr std::uint32_t kCoordinateSystems = 0x6;
constexpr std::uint32_t kApplications = 0x7;
constexpr std::uint32_t kDimensionStyles = 0x8;
constexpr std::uint32_t kBlockRecords = 0x9;
}  // namespace table

namespace record {
constexpr std::uint32_t kViewport = 0x10;
constexpr std::uint32_t kByBlock = 0x11;
constexpr std::uint32_t kByLayer = 0x12;
constexpr std::uint32_t kContinuous = 0x13;
constexpr std::uint32_t kDashed = 0x14;
constexpr std::uint32_t kLayerZero = 0x15;
constexpr std::uint32_t kStyle = 0x16;
constexpr std::uint32_t kHostApplication = 0x17;
constexpr std::uint32_t kOurApplication = 0x18;
constexpr std::uint32_t kDimensionStyle = 0x19;
constexpr std::uint32_t kModelBegin = 0x20;
constexpr std::uint32_t kModelEnd = 0x21;
constexpr std::uint32_t kPaperBegin = 0x23;
constexpr std::uint32_t kPaperEnd = 0x24;
}  // namespace record

// A dash and a gap, in mm of paper.
constexpr double kDashLength = 1.6;
constexpr double kDashGap = 1.2;

constexpr double kAspect = 1.5;  // of the window in which the drawing is first shown
constexpr double kAroundView = 1.05;

int unitCode(double metres) {
  constexpr int kMillimetres = 4;
  constexpr int kCentimetres = 5;
  constexpr int kMetres = 6;
  return metres < 0.005 ? kMillimetres : metres < 0.5 ? kCentimetres : kMetres;
}

void variable(std::string_view name, GroupText& out) {
  out.text(9, name);
}

void beginSection(std::string_view name, GroupText& out) {
  out.text(0, "SECTION");
  out.text(2, name);
}

void endSection(GroupText& out) {
  out.text(0, "ENDSEC");
}

void endTable(GroupText& out) {
  out.text(0, "ENDTAB");
}

}  // namespace

GroupText DxfStructure::beforeEntities() const {
  GroupText out;
  writeHeader(out);
  if (!isR12()) {
    writeClasses(out);
  }
  writeTables(out);
  writeBlocks(out);
  beginSection("ENTITIES", out);
  return out;
}

GroupText DxfStructure::afterEntities() const {
  GroupText out;
  endSection(out);
  if (!isR12()) {
    writeObjects(m_header.extents, out);
  }
  out.text(0, "EOF");
  return out;
}

void DxfStructure::writeHeader(GroupText& out) const {
  const auto number = [&out](std::string_view name, int code, double value) {
    variable(name, out);
    out.number(code, value);
  };
  const auto integer = [&out](std::string_view name, int code, std::int64_t value) {
    variable(name, out);
    out.integer(code, value);
  };
  const auto text = [&out](std::string_view name, int code, std::string_view value) {
    variable(name, out);
    out.text(code, value);
  };
  beginSection("HEADER", out);
  text("$ACADVER", 1, isR12() ? "AC1009" : "AC1015");
  text("$DWGCODEPAGE", 3, "ANSI_1252");
  variable("$INSBASE", out);
  out.point(10, {});
  variable("$EXTMIN", out);
  out.point(10, m_header.extents.least);
  variable("$EXTMAX", out);
  out.point(10, m_header.extents.most);
  variable("$LIMMIN", out);
  out.planePoint(10, m_header.extents.least);
  variable("$LIMMAX", out);
  out.planePoint(10, m_header.extents.most);
  number("$LTSCALE", 40, m_header.paper);
  number("$TEXTSIZE", 40, m_header.lettering);
  text("$TEXTSTYLE", 7, "STANDARD");
  text("$CLAYER", 8, "0");
  text("$CELTYPE", 6, "BYLAYER");
  integer("$CECOLOR", 62, kByLayer);
  integer("$FILLMODE", 70, 1);
  integer("$LUNITS", 70, 2);
  integer("$TILEMODE", 70, 1);
  if (!isR12()) {
    text("$DIMSTYLE", 2, "STANDARD");
    integer("$MEASUREMENT", 70, 1);
    integer("$INSUNITS", 70, unitCode(m_header.unitInMetres));
    integer("$PSTYLEMODE", 290, 1);
    variable("$HANDSEED", out);
    out.handle(5, m_firstLayer + static_cast<std::uint32_t>(m_layers.layers().size()));
  }
  endSection(out);
}

void DxfStructure::writeTables(GroupText& out) const {
  beginSection("TABLES", out);
  writeViewport(out);
  writeLineTypes(out);
  writeLayers(out);
  writeTextStyle(out);
  beginTable("VIEW", table::kViews, 0, out);
  endTable(out);
  beginTable("UCS", table::kCoordinateSystems, 0, out);
  endTable(out);
  writeApplications(out);
  if (!isR12()) {
    writeDimensionStyle(out);
    writeBlockRecords(out);
  }
  endSection(out);
}

void DxfStructure::beginTable(std::string_view name, std::uint32_t handle, std::size_t count,
                              GroupText& out) const {
  out.text(0, "TABLE");
  out.text(2, name);
  if (!isR12()) {
    out.handle(5, handle);
    out.handle(330, 0);
    out.text(100, "AcDbSymbolTable");
  }
  out.integer(70, static_cast<std::int64_t>(count));
}

void DxfStructure::beginRecord(std::string_view type, std::uint32_t handle, std::uint32_t table,
                               std::string_view subclass, std::string_view name,
                               GroupText& out) const {
  constexpr int kHandle = 5;
  constexpr int kHandleOfDimensionStyle = 105;
  out.text(0, type);
  if (!isR12()) {
    out.handle(table == table::kDimensionStyles ? kHandleOfDimensionStyle : kHandle, handle);
    out.handle(330, table);
    out.text(100, "AcDbSymbolTableRecord");
    out.text(100, subclass);
  }
  out.text(2, name);
}

void DxfStructure::writeViewport(GroupText& out) const {
  const SheetBox& view = m_header.view;
  const double height =
      std::max({view.height(), view.width() / kAspect, m_header.lettering}) * kAroundView;
  beginTable("VPORT", table::kViewports, 1, out);
  beginRecord("VPORT", record::kViewport, table::kViewports, "AcDbViewportTableRecord", "*ACTIVE",
              out);
  out.integer(70, 0);
  out.planePoint(10, {});
  out.planePoint(11, {1.0, 1.0});
  out.planePoint(12, view.center());
  out.planePoint(13, {});
  for (const int code : {14, 15}) {
    out.planePoint(code, {10.0 * m_header.paper, 10.0 * m_header.paper});
  }
  out.planePoint(16, {});
  out.number(36, 1.0);
  out.point(17, {});
  out.number(40, height);
  out.number(41, kAspect);
  out.number(42, 50.0);
  for (const int code : {43, 44, 50, 51}) {
    out.number(code, 0.0);
  }
  out.integer(71, 0);
  out.integer(72, 100);
  out.integer(73, 1);
  out.integer(74, 1);
  for (const int code : {75, 76, 77, 78}) {
    out.integer(code, 0);
  }
  endTable(out);
}

void DxfStructure::writeLineTypes(GroupText& out) const {
  constexpr std::string_view kSubclass = "AcDbLinetypeTableRecord";
  const auto plain = [&](std::uint32_t handle, std::string_view name, std::string_view text) {
    beginRecord("LTYPE", handle, table::kLineTypes, kSubclass, name, out);
    out.integer(70, 0);
    out.text(3, text);
    out.integer(72, 65);
    out.integer(73, 0);
    out.number(40, 0.0);
  };
  beginTable("LTYPE", table::kLineTypes, isR12() ? 2 : 4, out);
  if (!isR12()) {
    plain(record::kByBlock, "BYBLOCK", "");
    plain(record::kByLayer, "BYLAYER", "");
  }
  plain(record::kContinuous, "CONTINUOUS", "Solid line");
  beginRecord("LTYPE", record::kDashed, table::kLineTypes, kSubclass, "DASHED", out);
  out.integer(70, 0);
  out.text(3, "__ __ __ __ __ __ __ __");
  out.integer(72, 65);
  out.integer(73, 2);
  out.number(40, kDashLength + kDashGap);
  for (const double length : {kDashLength, -kDashGap}) {
    out.number(49, length);
    if (!isR12()) {
      out.integer(74, 0);
    }
  }
  endTable(out);
}

void DxfStructure::writeLayers(GroupText& out) const {
  const auto layer = [&](const DxfLayer& one, std::uint32_t handle) {
    beginRecord("LAYER", handle, table::kLayers, "AcDbLayerTableRecord", one.name, out);
    out.integer(70, 0);
    out.integer(62, one.color);
    out.text(6, one.isDashed ? "DASHED" : "CONTINUOUS");
    if (!isR12()) {
      out.integer(370, one.weight);
      out.handle(390, dxf_handle::kNormalPlotStyle);
    }
  };
  constexpr int kDefaultWeight = -3;
  beginTable("LAYER", table::kLayers, m_layers.layers().size() + 1, out);
  layer({"0", 7, kDefaultWeight, false}, record::kLayerZero);
  std::uint32_t handle = m_firstLayer;
  for (const auto& [name, one] : m_layers.layers()) {
    layer(one, handle++);
  }
  endTable(out);
}

// R12 knows the shape fonts alone.
void DxfStructure::writeTextStyle(GroupText& out) const {
  beginTable("STYLE", table::kStyles, 1, out);
  beginRecord("STYLE", record::kStyle, table::kStyles, "AcDbTextStyleTableRecord", "STANDARD", out);
  out.integer(70, 0);
  out.number(40, 0.0);
  out.number(41, 1.0);
  out.number(50, 0.0);
  out.integer(71, 0);
  out.number(42, m_header.lettering);
  out.text(3, isR12() ? "txt" : "arial.ttf");
  out.text(4, "");
  endTable(out);
}

void DxfStructure::writeApplications(GroupText& out) const {
  constexpr std::string_view kSubclass = "AcDbRegAppTableRecord";
  beginTable("APPID", table::kApplications, 2, out);
  beginRecord("APPID", record::kHostApplication, table::kApplications, kSubclass, "ACAD", out);
  out.integer(70, 0);
  beginRecord("APPID", record::kOurApplication, table::kApplications, kSubclass, kApplicationName,
              out);
  out.integer(70, 0);
  endTable(out);
}

void DxfStructure::writeDimensionStyle(GroupText& out) const {
  beginTable("DIMSTYLE", table::kDimensionStyles, 1, out);
  out.text(100, "AcDbDimStyleTable");
  beginRecord("DIMSTYLE", record::kDimensionStyle, table::kDimensionStyles,
              "AcDbDimStyleTableRecord", "STANDARD", out);
  out.integer(70, 0);
  out.handle(340, record::kStyle);
  endTable(out);
}

void DxfStructure::writeBlockRecords(GroupText& out) const {
  constexpr std::string_view kSubclass = "AcDbBlockTableRecord";
  beginTable("BLOCK_RECORD", table::kBlockRecords, m_blocks.size() + 2, out);
  const auto one = [&](std::uint32_t handle, std::string_view name, std::uint32_t layout) {
    beginRecord("BLOCK_RECORD", handle, table::kBlockRecords, kSubclass, name, out);
    out.handle(340, layout);
  };
  one(dxf_handle::kModelSpace, "*MODEL_SPACE", dxf_handle::kModelLayout);
  one(dxf_handle::kPaperSpace, "*PAPER_SPACE", dxf_handle::kPaperLayout);
  for (const DxfBlock& block : m_blocks) {
    one(block.record, block.name, 0);
  }
  endTable(out);
}

void DxfStructure::writeBlocks(GroupText& out) const {
  beginSection("BLOCKS", out);
  if (!isR12()) {
    writeBlock(
        {"*MODEL_SPACE", dxf_handle::kModelSpace, record::kModelBegin, record::kModelEnd, {}}, out);
    writeBlock(
        {"*PAPER_SPACE", dxf_handle::kPaperSpace, record::kPaperBegin, record::kPaperEnd, {}}, out);
  }
  for (const DxfBlock& block : m_blocks) {
    writeBlock(block, out);
  }
  endSection(out);
}

void DxfStructure::writeBlock(const DxfBlock& block, GroupText& out) const {
  const auto head = [&](std::string_view type, std::uint32_t handle, std::string_view subclass) {
    out.text(0, type);
    if (!isR12()) {
      out.handle(5, handle);
      out.handle(330, block.record);
      out.text(100, "AcDbEntity");
    }
    out.text(8, "0");
    if (!isR12()) {
      out.text(100, subclass);
    }
  };
  head("BLOCK", block.begin, "AcDbBlockBegin");
  out.text(2, block.name);
  out.integer(70, 0);
  out.point(10, {});
  out.text(3, block.name);
  if (!isR12()) {
    out.text(1, "");
  }
  out.made(block.entities.bytes());
  head("ENDBLK", block.end, "AcDbBlockEnd");
}

}  // namespace quorvan::tool
