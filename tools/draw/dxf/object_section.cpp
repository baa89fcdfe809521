#include <tools/draw/dxf/object_section.h>

#include <initializer_list>
#include <string_view>

#include <tools/draw/dxf/entity_writer.h>
#include <tools/draw/dxf/fixed_handles.h>

namespace quorvan::tool {

namespace {

constexpr PlanePoint kUsualSheet{420.0, 297.0};

void beginObject(std::string_view type, std::uint32_t handle, std::uint32_t owner,
                 std::string_view subclass, GroupText& out) {
  out.text(0, type);
  out.identity(handle, owner, subclass);
}

struct DictionaryEntry {
  std::string_view name;
  std::uint32_t handle;
};

void writeDictionary(std::string_view type, std::uint32_t handle, std::uint32_t owner,
                     std::initializer_list<DictionaryEntry> entries, GroupText& out) {
  beginObject(type, handle, owner, "AcDbDictionary", out);
  out.integer(281, 1);
  for (const DictionaryEntry& entry : entries) {
    out.text(3, entry.name);
    out.handle(350, entry.handle);
  }
}

void writeLayout(std::string_view name, std::uint32_t handle, int order, std::uint32_t space,
                 const SheetBox& extents, GroupText& out) {
  constexpr int kModelType = 1024;
  beginObject("LAYOUT", handle, object_handle::kLayouts, "AcDbPlotSettings", out);
  for (const int code : {1, 2, 4, 6}) {
    out.text(code, "");
  }
  for (const int code : {40, 41, 42, 43}) {
    out.number(code, 0.0);
  }
  out.number(44, kUsualSheet.x);
  out.number(45, kUsualSheet.y);
  for (const int code : {46, 47, 48, 49, 140, 141}) {
    out.number(code, 0.0);
  }
  out.number(142, 1.0);
  out.number(143, 1.0);
  out.integer(70, order == 0 ? kModelType : 0);
  out.integer(72, 1);
  out.integer(73, 0);
  out.integer(74, 5);
  out.text(7, "");
  out.integer(75, 16);
  out.number(147, 1.0);
  out.number(148, 0.0);
  out.number(149, 0.0);
  out.text(100, "AcDbLayout");
  out.text(1, name);
  out.integer(70, 1);
  out.integer(71, order);
  out.planePoint(10, {});
  out.planePoint(11, kUsualSheet);
  out.point(12, {});
  out.point(14, extents.least);
  out.point(15, extents.most);
  out.number(146, 0.0);
  out.point(13, {});
  out.point(16, {1.0, 0.0});
  out.point(17, {0.0, 1.0});
  out.integer(76, 0);
  out.handle(330, space);
}

void writeLineStyle(GroupText& out) {
  beginObject("MLINESTYLE", object_handle::kLineStyle, object_handle::kLineStyles, "AcDbMlineStyle",
              out);
  out.text(2, "STANDARD");
  out.integer(70, 0);
  out.text(3, "");
  out.integer(62, kByLayer);
  out.number(51, 90.0);
  out.number(52, 90.0);
  out.integer(71, 2);
  for (const double offset : {0.5, -0.5}) {
    out.number(49, offset);
    out.integer(62, kByLayer);
    out.text(6, "BYLAYER");
  }
}

}  // namespace

void writeClasses(GroupText& out) {
  constexpr std::string_view kClasses[][2] = {{"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault"},
                                              {"ACDBPLACEHOLDER", "AcDbPlaceHolder"},
                                              {"LAYOUT", "AcDbLayout"}};
  out.beginSection("CLASSES");
  for (const auto& [name, cppName] : kClasses) {
    out.text(0, "CLASS");
    out.text(1, name);
    out.text(2, cppName);
    out.text(3, "ObjectDBX Classes");
    out.integer(90, 0);
    out.integer(280, 0);
    out.integer(281, 0);
  }
  out.endSection();
}

void writeObjects(const SheetBox& extents, GroupText& out) {
  out.beginSection("OBJECTS");
  writeDictionary("DICTIONARY", object_handle::kRoot, 0,
                  {{"ACAD_GROUP", object_handle::kGroups},
                   {"ACAD_LAYOUT", object_handle::kLayouts},
                   {"ACAD_MLINESTYLE", object_handle::kLineStyles},
                   {"ACAD_PLOTSETTINGS", object_handle::kPlotSettings},
                   {"ACAD_PLOTSTYLENAME", object_handle::kPlotStyles}},
                  out);
  writeDictionary("DICTIONARY", object_handle::kGroups, object_handle::kRoot, {}, out);
  writeDictionary(
      "DICTIONARY", object_handle::kLayouts, object_handle::kRoot,
      {{"Model", object_handle::kModelLayout}, {"Layout1", object_handle::kPaperLayout}}, out);
  writeDictionary("DICTIONARY", object_handle::kLineStyles, object_handle::kRoot,
                  {{"Standard", object_handle::kLineStyle}}, out);
  writeDictionary("DICTIONARY", object_handle::kPlotSettings, object_handle::kRoot, {}, out);
  writeDictionary("ACDBDICTIONARYWDFLT", object_handle::kPlotStyles, object_handle::kRoot,
                  {{"Normal", object_handle::kNormalPlotStyle}}, out);
  out.text(100, "AcDbDictionaryWithDefault");
  out.handle(340, object_handle::kNormalPlotStyle);
  beginObject("ACDBPLACEHOLDER", object_handle::kNormalPlotStyle, object_handle::kPlotStyles, "",
              out);
  writeLayout("Model", object_handle::kModelLayout, 0, record_handle::kModelSpace, extents, out);
  writeLayout("Layout1", object_handle::kPaperLayout, 1, record_handle::kPaperSpace,
              {{}, kUsualSheet}, out);
  writeLineStyle(out);
  out.endSection();
}

}  // namespace quorvan::tool
