#include <tools/draw/page/html_page.h>

#include <sstream>
#include <utility>

#include <tools/draw/page/element_rows.h>
#include <tools/draw/page/packed_picture.h>
#include <tools/draw/page/page_parts.h>
#include <tools/draw/page/page_template.h>
#include <tools/draw/page/script_json.h>
#include <tools/draw/writers/svg_writer.h>
#include <tools/schedule/list_tables.h>
#include <tools/schedule/list_writers.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

// Up to so many elements and shapes the drawing is an SVG, which every reader of the page can take
// apart; more of them would make it stumble.
constexpr std::size_t kMostSvgShapes = 5000;

Json placesOf(const BarRow& row) {
  Json places = Json::array();
  for (const SourceElements& source : row.sources) {
    for (const Element* const element : source.elements) {
      places.push_back(element->place);
    }
  }
  for (const Element* const element : row.endOn) {
    places.push_back(element->place);
  }
  return places;
}

std::string lengthText(const BarRow& row, const LengthUnit& unit) {
  if (!row.hasLength) {
    return "\u2013";
  }
  const std::string shortest = fixed(row.shortest, unit.decimals);
  return (row.isLowerBound ? "\u2265 " : "") +
         (row.varies() ? filled(kEnglishList.range, {shortest, fixed(row.longest, unit.decimals)})
                       : shortest);
}

Json sumsOf(const BarList& list) {
  Json sums = Json::array();
  for (const BarSum& sum : list.sums) {
    sums.push_back({{"diameter", rounded(sum.diameter, 2)},
                    {"number", sum.number},
                    {"grade", sum.grade},
                    {"length", fixed(sum.length, kMetreDecimals)},
                    {"mass", fixed(sum.mass, kMassDecimals)}});
  }
  return sums;
}

// The list as the page hands it on.
std::string csvOf(const BarList& list) {
  std::ostringstream out;
  writeListCsv(list, {}, out);
  return out.str();
}

std::string barsText(const BarList& list) {
  const LengthUnit& unit = *list.options.unit;
  Json rows = Json::array();
  for (const BarRow& row : list.rows) {
    rows.push_back({{"mark", row.mark},
                    {"shape", shapeName(row.shape)},
                    {"grade", row.grade},
                    {"diameter", rounded(row.diameter, 2)},
                    {"number", row.number},
                    {"length", lengthText(row, unit)},
                    {"mass", row.hasLength ? fixed(massOf(row, unit), kMassDecimals) : "\u2013"},
                    {"places", placesOf(row)}});
  }
  std::string convention;
  for (const std::string& paragraph : conventionsOf(list, kEnglishList)) {
    convention += (convention.empty() ? "" : " ") + paragraph;
  }
  return ",\n\"bars\": " + scriptJson(rows) + ",\n\"sums\": " + scriptJson(sumsOf(list)) +
         ",\n\"mass\": " + scriptJson(fixed(list.mass, kMassDecimals)) +
         ",\n\"convention\": " + scriptJson(convention) + ",\n\"csv\": " + scriptJson(csvOf(list));
}

// What a millimetre of the sheet is in the drawing's unit.
void writeUnit(const LengthUnit& unit, double unitsPerMillimetre, std::ostream& out) {
  const Json text = {
      {"name", unit.name}, {"decimals", unit.decimals}, {"perMillimetre", unitsPerMillimetre}};
  out << ",\n\"unit\": " << scriptJson(text) << "}";
}

// A canvas has the SVG over it for what is measured, and to know where it is.
void writeDrawing(const Scene& scene, bool isLarge, std::ostream& out) {
  if (!isLarge) {
    return writeSvg(scene, {true}, out);
  }
  Scene empty;
  empty.width = scene.width;
  empty.height = scene.height;
  empty.title = scene.title;
  out << "<canvas></canvas>\n";
  writeSvg(empty, {true}, out);
}

}  // namespace

HtmlPage::HtmlPage(const TransferFile& file, const ListOptions& options)
    : m_file(file),
      m_hasManyElements(file.elements().size() > kMostSvgShapes),
      m_list(beginBarList(file, options)) {
  m_data = std::async([list = m_list] { return barsText(list.get()); });
  if (m_hasManyElements) {
    m_rows = beginRows(false);
  }
}

// After the list, which the drawing waits for.
std::future<HtmlPage::Rows> HtmlPage::beginRows(bool areDescribed) const {
  return std::async([&file = m_file, list = m_list, areDescribed] {
    list.wait();
    std::ostringstream out;
    ElementHead head = writeElementRows(file, areDescribed, out);
    return Rows{std::move(head), std::move(out).str()};
  });
}

void HtmlPage::write(const Scene& scene, double unitsPerMillimetre, std::ostream& out) {
  const bool isLarge = m_hasManyElements || scene.shapes.size() > kMostSvgShapes;
  if (!m_hasManyElements) {
    m_rows = beginRows(!isLarge);
  }
  Rows rows;
  fillTemplate(kPageTemplate, out, [&](std::string_view part) {
    if (part == "title") {
      out << xmlText(scene.title);
    } else if (part == "style") {
      out << kPageStyle;
    } else if (part == "script") {
      out << kMovingScript << kPanelScript << kElementRowsScript << kSvgSurfaceScript
          << kPackedPictureScript << kCanvasPainterScript << kCanvasTouchScript
          << kCanvasSurfaceScript << kMeasuringScript << kBarTableScript << kPageScript;
    } else if (part == "drawing") {
      writeDrawing(scene, isLarge, out);
    } else if (part == "picture" && isLarge) {
      writePackedPicture(scene, out);
    } else if (part == "rows") {
      rows = m_rows.get();
      out << rows.text;
    } else if (part == "data") {
      out << "{\"classes\": " << scriptJson(rows.head.classes)
          << ",\n\"marks\": " << scriptJson(rows.head.marks) << m_data.get();
      writeUnit(*m_list.get().options.unit, unitsPerMillimetre, out);
    }
  });
}

}  // namespace quorvan::tool
