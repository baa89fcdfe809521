#include <tools/draw/dxf/object_section.h>

#include <initializer_list>
#include <string_view>

#include <tools/draw/dxf/entity_writer.h>

namespace quorvan::tool {

namespace {

namespace object {
constexpr std::uint32_t kRoot = 0x25;
constexpr std::uint32_t kGroups = 0x26;
constexpr std::uint32_t kLayouts = 0x27;
constexpr std::uint32_t kLineStyles = 0x28;
constexpr std::uint32_t kPlotSettings = 0x29;
constexpr std::uint32_t kPlotStyles = 0x2A;
constexpr std::uint32_t kLineStyle = 0x2E;
}  // namespace object

constexpr PlanePoint kUsualSheet{420.0, 297.0};

void beginObject(std::string_view type, std::uint32_t handle, std::uint32_t owner,
                 std::string_view subclass, GroupText& out) {
  out.text(0, type);
  out.handle(5, handle);
  out.handle(330, owner);
  if (!subclass.empty()) {
    out.text(100, subclass);
  }
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
  beginObject("LAYOUT", handle, object::kLayouts, "AcDbPlotSettings", out);
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
  beginObject("MLINESTYLE", object::kLineStyle, object::kLineStyles, "AcDbMlineStyle", out);
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
  out.text(0, "SECTION");
  out.text(2, "CLASSES");
  for (const auto& [name, cppName] : kClasses) {
    out.text(0, "CLASS");
    out.text(1, name);
    out.text(2, cppName);
    out.text(3, "ObjectDBX Classes");
    out.integer(90, 0);
    out.integer(280, 0);
    out.integer(281, 0);
  }
  out.text(0, "ENDSEC");
}

void writeObjects(const SheetBox& extents, GroupText& out) {
  out.text(0, "SECTION");
  out.text(2, "OBJECTS");
  writeDictionary("DICTIONARY", object::kRoot, 0,
                  {{"ACAD_GROUP", object::kGroups},
                   {"ACAD_LAYOUT", object::kLayouts},
                   {"ACAD_MLINESTYLE", object::kLineStyles},
                   {"ACAD_PLOTSETTINGS", object::kPlotSettings},
                   {"ACAD_PLOTSTYLENAME", object::kPlotStyles}},
                  out);
  writeDictionary("DICTIONARY", object::kGroups, object::kRoot, {}, out);
  writeDictionary("DICTIONARY", object::kLayouts, object::kRoot,
                  {{"Model", dxf_handle::kModelLayout}, {"Layout1", dxf_handle::kPaperLayout}},
                  out);
  writeDictionary("DICTIONARY", object::kLineStyles, object::kRoot,
                  {{"Standard", object::kLineStyle}}, out);
  writeDictionary("DICTIONARY", object::kPlotSettings, object::kRoot, {}, out);
  writeDictionary("ACDBDICTIONARYWDFLT", object::kPlotStyles, object::kRoot,
                  {{"Normal", dxf_handle::kNormalPlotStyle}}, out);
  out.text(100, "AcDbDictionaryWithDefault");
  out.handle(340, dxf_handle::kNormalPlotStyle);
  beginObject("ACDBPLACEHOLDER", dxf_handle::kNormalPlotStyle, object::kPlotStyles, "", out);
  writeLayout("Model", dxf_handle::kModelLayout, 0, dxf_handle::kModelSpace, extents, out);
  writeLayout("Layout1", dxf_handle::kPaperLayout, 1, dxf_handle::kPaperSpace, {{}, kUsualSheet},
              out);
  writeLineStyle(out);
  out.text(0, "ENDSEC");
}

}  // namespace quorvan::tool
