#include <tools/draw/page/html_page.h>

#include <sstream>

#include <tools/draw/page/page_parts.h>
#include <tools/draw/page/page_template.h>
#include <tools/draw/writers/svg_writer.h>
#include <tools/listing/item_cells.h>
#include <tools/model/description.h>
#include <tools/model/item_reader.h>
#include <tools/model/repartition.h>
#include <tools/model/repeated_bars.h>
#include <tools/schedule/list_tables.h>
#include <tools/schedule/list_writers.h>
#include <tools/text/json_text.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

// JSON that can stand in a script: what would end it, or is markup in XML, is written out.
std::string scriptJson(const Json& value) {
  std::string out;
  for (const char unit : inlineJson(value)) {
    if (unit == '<') {
      out += "\\u003c";
    } else if (unit == '>') {
      out += "\\u003e";
    } else if (unit == '&') {
      out += "\\u0026";
    } else {
      out += unit;
    }
  }
  return out;
}

// The marks by which elements are found: that of a bar, and of a repartition that of its bar.
class MarkFinder {
 public:
  explicit MarkFinder(const TransferFile& file) : m_bars(file) {}

  Json of(const Element& element, const std::vector<ItemValue>& items) {
    if (const auto shape = barShapeOf(element)) {
      return toBar(*shape, items).reference;
    }
    if (!element.is(items::ElementClass::kRepartition)) {
      return {};
    }
    const Bar* const bar = m_bars.find(toRepartition(items));
    return bar == nullptr ? Json() : Json(bar->reference);
  }

 private:
  RepeatedBars m_bars;
};

// [class, index, description, mark or null, [[item, value], ...]]
Json elementData(const TransferFile& file, const Element& element, ItemReader& reader,
                 MarkFinder& marks) {
  Json mark;
  Json rows = Json::array();
  std::string description = std::string(element.className());
  if (element.schema != nullptr) {
    const std::vector<ItemValue>& items = reader.read(element);
    description = describe(element, items);
    mark = marks.of(element, items);
    for (const ItemValue& item : items) {
      rows.push_back(Json::array({displayName(*item.schema), itemCell(item)}));
    }
  }
  return Json::array(
      {element.className(), file.indexOf(element), description, std::move(mark), std::move(rows)});
}

void writeElements(const TransferFile& file, std::ostream& out) {
  ItemReader reader(file);
  MarkFinder marks(file);
  out << "{\"elements\": [";
  const char* separator = "\n";
  for (const Element& element : file.elements()) {
    out << separator << scriptJson(elementData(file, element, reader, marks));
    separator = ",\n";
  }
  out << "\n]";
}

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

void writeBars(const TransferFile& file, const LengthUnit& unit, std::ostream& out) {
  ListOptions options;
  options.unit = &unit;
  const BarList list = makeBarList({&file}, options);
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
  out << ",\n\"bars\": " << scriptJson(rows) << ",\n\"sums\": " << scriptJson(sumsOf(list))
      << ",\n\"mass\": " << scriptJson(fixed(list.mass, kMassDecimals))
      << ",\n\"convention\": " << scriptJson(convention)
      << ",\n\"csv\": " << scriptJson(csvOf(list));
}

// What a millimetre of the sheet is in the drawing's unit.
void writeUnit(const LengthUnit& unit, double unitsPerMillimetre, std::ostream& out) {
  const Json text = {
      {"name", unit.name}, {"decimals", unit.decimals}, {"perMillimetre", unitsPerMillimetre}};
  out << ",\n\"unit\": " << scriptJson(text) << "}";
}

}  // namespace

void writeHtmlPage(const TransferFile& file, const Scene& scene, const LengthUnit& unit,
                   double unitsPerMillimetre, std::ostream& out) {
  fillTemplate(kPageTemplate, out, [&](std::string_view part) {
    if (part == "title") {
      out << xmlText(scene.title);
    } else if (part == "style") {
      out << kPageStyle;
    } else if (part == "script") {
      out << kMovingScript << kPanelScript << kSvgSurfaceScript << kMeasuringScript
          << kBarTableScript << kPageScript;
    } else if (part == "drawing") {
      writeSvg(scene, {true}, out);
    } else if (part == "data") {
      writeElements(file, out);
      writeBars(file, unit, out);
      writeUnit(unit, unitsPerMillimetre, out);
    }
  });
}

}  // namespace quorvan::tool
