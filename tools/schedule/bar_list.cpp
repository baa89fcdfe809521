#include <tools/schedule/bar_list.h>

#include <cmath>
#include <future>
#include <map>
#include <numbers>
#include <utility>

#include <tools/model/item_reader.h>
#include <tools/schedule/drawing_collector.h>

namespace quorvan::tool {

namespace {

void sum(BarList& list) {
  std::map<std::pair<double, std::string>, BarSum> sums;
  for (const BarRow& row : list.rows) {
    if (!row.hasLength) {
      continue;
    }
    BarSum& steel = sums[{row.diameter, row.grade}];
    steel.diameter = row.diameter;
    steel.grade = row.grade;
    const double mass = massOf(row, *list.options.unit);
    for (BarSum* const one : {&steel, &list.drawings[row.drawing].sum}) {
      one->number += row.number;
      one->length += list.options.unit->metres(row.totalLength);
      one->mass += mass;
    }
    list.mass += mass;
  }
  for (auto& [key, one] : sums) {
    list.sums.push_back(std::move(one));
  }
}

}  // namespace

BarList makeBarList(const std::vector<const TransferFile*>& files, const ListOptions& options) {
  BarList list;
  list.options = options;
  for (const TransferFile* const file : files) {
    ListedDrawing drawing;
    drawing.file = file;
    drawing.name = drawingName(*file);
    list.drawings.push_back(std::move(drawing));
    DrawingCollector(*file, list).collect();
  }
  sum(list);
  return list;
}

std::future<BarList> beginBarList(const TransferFile& file, const ListOptions& options) {
  return std::async([&file, options] { return makeBarList({&file}, options); });
}

double listedDiameter(const LengthUnit& unit, double diameter) noexcept {
  constexpr double kDigits = 1e6;  // digits that come from the change of the unit are dropped
  const double millimetres = unit.millimetres(diameter);
  return millimetres == diameter ? diameter : std::round(millimetres * kDigits) / kDigits;
}

double massOf(double diameter, double metres) noexcept {
  constexpr double kMillimetresInMetre = 1000.0;
  const double thickness = diameter / kMillimetresInMetre;
  return std::numbers::pi / 4.0 * thickness * thickness * metres * kSteelDensity;
}

double massOf(const BarRow& row, const LengthUnit& unit) noexcept {
  return massOf(row.diameter, unit.metres(row.totalLength));
}

double areaOf(const MeshRow& mesh, const LengthUnit& unit) noexcept {
  return unit.metres(mesh.width) * unit.metres(mesh.height);
}

std::string drawingName(const TransferFile& file) {
  const Element* const record = controlRecord(file);
  return record == nullptr ? std::string()
                           : findItem(ItemReader(file).read(*record), "DrawingName")->text;
}

}  // namespace quorvan::tool
