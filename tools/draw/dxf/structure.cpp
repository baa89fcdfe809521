#include <tools/draw/dxf/structure.h>

#include <algorithm>
#include <cmath>

#include <tools/draw/dxf/fixed_handles.h>
#include <tools/draw/dxf/object_section.h>

namespace quorvan::tool {

namespace {

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
  out.beginSection("ENTITIES");
  return out;
}

GroupText DxfStructure::afterEntities() const {
  GroupText out;
  out.endSection();
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
  out.beginSection("HEADER");
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
  out.endSection();
}

void DxfStructure::writeTables(GroupText& out) const {
  out.beginSection("TABLES");
  writeViewport(out);
  writeLineTypes(out);
  writeLayers(out);
  writeTextStyle(out);
  beginTable("VIEW", table_handle::kViews, 0, out);
  endTable(out);
  beginTable("UCS", table_handle::kCoordinateSystems, 0, out);
  endTable(out);
  writeApplications(out);
  if (!isR12()) {
    writeDimensionStyle(out);
    writeBlockRecords(out);
  }
  out.endSection();
}

void DxfStructure::beginTable(std::string_view name, std::uint32_t handle, std::size_t count,
                              GroupText& out) const {
  out.text(0, "TABLE");
  out.text(2, name);
  if (!isR12()) {
    out.identity(handle, 0, "AcDbSymbolTable");
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
    out.handle(table == table_handle::kDimensionStyles ? kHandleOfDimensionStyle : kHandle, handle);
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
  beginTable("VPORT", table_handle::kViewports, 1, out);
  beginRecord("VPORT", record_handle::kViewport, table_handle::kViewports,
              "AcDbViewportTableRecord", "*ACTIVE", out);
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
    beginRecord("LTYPE", handle, table_handle::kLineTypes, kSubclass, name, out);
    out.integer(70, 0);
    out.text(3, text);
    out.integer(72, 65);
    out.integer(73, 0);
    out.number(40, 0.0);
  };
  beginTable("LTYPE", table_handle::kLineTypes, isR12() ? 2 : 4, out);
  if (!isR12()) {
    plain(record_handle::kByBlock, "BYBLOCK", "");
    plain(record_handle::kByLayer, "BYLAYER", "");
  }
  plain(record_handle::kContinuous, "CONTINUOUS", "Solid line");
  beginRecord("LTYPE", record_handle::kDashed, table_handle::kLineTypes, kSubclass, "DASHED", out);
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
    beginRecord("LAYER", handle, table_handle::kLayers, "AcDbLayerTableRecord", one.name, out);
    out.integer(70, 0);
    out.integer(62, one.color);
    out.text(6, one.isDashed ? "DASHED" : "CONTINUOUS");
    if (!isR12()) {
      out.integer(370, one.weight);
      out.handle(390, object_handle::kNormalPlotStyle);
    }
  };
  constexpr int kDefaultWeight = -3;
  beginTable("LAYER", table_handle::kLayers, m_layers.layers().size() + 1, out);
  layer({"0", 7, kDefaultWeight, false}, record_handle::kLayerZero);
  std::uint32_t handle = m_firstLayer;
  for (const auto& [name, one] : m_layers.layers()) {
    layer(one, handle++);
  }
  endTable(out);
}

// R12 knows the shape fonts alone.
void DxfStructure::writeTextStyle(GroupText& out) const {
  beginTable("STYLE", table_handle::kStyles, 1, out);
  beginRecord("STYLE", record_handle::kStyle, table_handle::kStyles, "AcDbTextStyleTableRecord",
              "STANDARD", out);
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
  beginTable("APPID", table_handle::kApplications, 2, out);
  beginRecord("APPID", record_handle::kHostApplication, table_handle::kApplications, kSubclass,
              "ACAD", out);
  out.integer(70, 0);
  beginRecord("APPID", record_handle::kOurApplication, table_handle::kApplications, kSubclass,
              kApplicationName, out);
  out.integer(70, 0);
  endTable(out);
}

void DxfStructure::writeDimensionStyle(GroupText& out) const {
  beginTable("DIMSTYLE", table_handle::kDimensionStyles, 1, out);
  out.text(100, "AcDbDimStyleTable");
  beginRecord("DIMSTYLE", record_handle::kDimensionStyle, table_handle::kDimensionStyles,
              "AcDbDimStyleTableRecord", "STANDARD", out);
  out.integer(70, 0);
  out.handle(340, record_handle::kStyle);
  endTable(out);
}

void DxfStructure::writeBlockRecords(GroupText& out) const {
  constexpr std::string_view kSubclass = "AcDbBlockTableRecord";
  beginTable("BLOCK_RECORD", table_handle::kBlockRecords, m_blocks.size() + 2, out);
  const auto one = [&](std::uint32_t handle, std::string_view name, std::uint32_t layout) {
    beginRecord("BLOCK_RECORD", handle, table_handle::kBlockRecords, kSubclass, name, out);
    out.handle(340, layout);
  };
  one(record_handle::kModelSpace, "*MODEL_SPACE", object_handle::kModelLayout);
  one(record_handle::kPaperSpace, "*PAPER_SPACE", object_handle::kPaperLayout);
  for (const DxfBlock& block : m_blocks) {
    one(block.record, block.name, 0);
  }
  endTable(out);
}

void DxfStructure::writeBlocks(GroupText& out) const {
  out.beginSection("BLOCKS");
  if (!isR12()) {
    writeBlock({"*MODEL_SPACE",
                record_handle::kModelSpace,
                record_handle::kModelBegin,
                record_handle::kModelEnd,
                {}},
               out);
    writeBlock({"*PAPER_SPACE",
                record_handle::kPaperSpace,
                record_handle::kPaperBegin,
                record_handle::kPaperEnd,
                {}},
               out);
  }
  for (const DxfBlock& block : m_blocks) {
    writeBlock(block, out);
  }
  out.endSection();
}

void DxfStructure::writeBlock(const DxfBlock& block, GroupText& out) const {
  const auto head = [&](std::string_view type, std::uint32_t handle, std::string_view subclass) {
    out.text(0, type);
    if (!isR12()) {
      out.identity(handle, block.record, "AcDbEntity");
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
