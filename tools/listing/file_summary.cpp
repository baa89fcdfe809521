#include <tools/listing/file_summary.h>

#include <map>
#include <set>
#include <unordered_map>
#include <utility>

#include <tools/model/control_members.h>
#include <tools/model/item_reader.h>
#include <tools/model/repeated_bars.h>
#include <tools/model/series_layout.h>
#include <tools/text/keyed_hash.h>

namespace quorvan::tool {

namespace {

std::vector<ClassCount> countClasses(const TransferFile& file) {
  std::vector<ClassCount> classes;
  std::unordered_map<std::string_view, std::size_t, KeyedHash> places;
  for (const Element& element : file.elements()) {
    const auto [known, isNew] = places.emplace(element.className(), classes.size());
    if (isNew) {
      classes.push_back({element.className(), element.schema != nullptr, 0});
    }
    ++classes[known->second].count;
  }
  return classes;
}

std::optional<ControlSummary> summarizeControl(const TransferFile& file, ItemReader& reader) {
  const Element* const record = controlRecord(file);
  if (record == nullptr) {
    return std::nullopt;
  }
  const std::vector<ItemValue>& items = reader.read(*record);
  return ControlSummary{findItem(items, "DrawingName")->text, findItem(items, "ZantoVersion")->text,
                        findItem(items, "ServicePack")->integer,
                        findItem(items, "CheckSum")->integer};
}

SeriesSummary summarizeSeries(const TransferFile& file, const Element& element, RepeatedBars& bars,
                              ItemReader& reader) {
  const Repartition series = toRepartition(reader.read(element));
  SeriesSummary summary;
  summary.index = file.indexOf(element);
  summary.className = series.className;
  summary.barIndex = series.index;
  summary.number = series.number();
  summary.isHidden = series.isHidden;
  const Bar* const bar = bars.find(series);
  if (bar != nullptr) {
    summary.reference = bar->reference;
  }
  summary.spacings = statedSpacings(series, bar);
  return summary;
}

bool tellsBarsApart(const items::ItemSchema& item) {
  return item.name == "Diameter" || item.name == "SteelGrade" || item.name == "Reference" ||
         item.name == "Hidden";
}

// What is counted element by element.
void countElements(const TransferFile& file, ItemReader& reader, FileSummary& summary) {
  std::map<std::pair<double, std::string>, BarCount> bars;
  std::set<std::int64_t> references;
  RepeatedBars repeated(file);
  const ItemSelection identity(tellsBarsApart);
  for (const Element& element : file.elements()) {
    if (barShapeOf(element)) {
      const std::vector<ItemValue>& items = reader.read(element, identity);
      ++bars[{findItem(items, "Diameter")->number, findItem(items, "SteelGrade")->text}].elements;
      references.insert(findItem(items, "Reference")->integer);
      summary.hidden += findItem(items, "Hidden")->flag ? 1U : 0U;
    } else if (element.is(items::ElementClass::kRepartition)) {
      summary.repartitions.push_back(summarizeSeries(file, element, repeated, reader));
      summary.hidden += summary.repartitions.back().isHidden ? 1U : 0U;
    }
  }
  ListOptions options;
  options.angles = summary.angles.unit;
  options.hasShapes = false;
  for (const BarRow& row : makeBarList({&file}, options).rows) {
    bars[{row.diameter, row.grade}].number += row.number;
  }
  for (auto& [key, count] : bars) {
    summary.bars.push_back({key.first, key.second, count.elements, count.number});
  }
  summary.references.assign(references.begin(), references.end());
}

}  // namespace

FileSummary summarize(const TransferFile& file) {
  ItemReader reader(file);
  FileSummary summary;
  summary.control = summarizeControl(file, reader);
  summary.classes = countClasses(file);
  summary.angles = guessAngleUnit(file);
  countElements(file, reader, summary);
  summary.extents = extentsOf(file);
  return summary;
}

}  // namespace quorvan::tool
