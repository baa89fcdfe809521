#include <tools/schedule/bar_list.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <tuple>
#include <unordered_map>

#include <tools/model/item_reader.h>
#include <tools/model/repartition.h>

namespace quorvan::tool {

namespace {

// What rows are told apart and sorted by; the length in steps of what the list shows.
using RowKey = std::tuple<std::int64_t, double, std::string, std::string, BarShape, double>;

struct Series {
  const Element* element;
  std::uint64_t number;
};

void addSource(BarRow& row, const Element& element) {
  for (SourceElements& known : row.sources) {
    if (known.className == element.className()) {
      known.elements.push_back(&element);
      return;
    }
  }
  row.sources.push_back({element.className(), {&element}});
}

// Collects the rows element by element.
class Collector {
 public:
  Collector(const TransferFile& file, const LengthUnit& unit)
      : m_file(file), m_reader(file), m_unit(unit) {}

  BarList collect() {
    collectSeries();
    for (const Element& element : m_file.elements()) {
      if (const auto shape = barShapeOf(element)) {
        add(element, toBar(*shape, m_reader.read(element)));
      } else if (element.is(items::ElementClass::kMesh)) {
        ++m_list.meshes;
      }
    }
    for (auto& [key, row] : m_rows) {
      addOrMerge(std::move(row));
    }
    settleEndOn();
    sum();
    return std::move(m_list);
  }

 private:
  void collectSeries() {
    const ElementIndex index(m_file);
    for (const Element& element : m_file.elements()) {
      if (!element.is(items::ElementClass::kRepartition)) {
        continue;
      }
      const Repartition series = toRepartition(m_reader.read(element));
      if (const Element* const bar = index.find(series.className, series.index)) {
        m_series[bar].push_back({&element, series.number()});
      }
    }
  }

  [[nodiscard]] double stepped(double length) const {
    const double steps = std::pow(10.0, m_unit.decimals);
    if (!std::isfinite(length)) {
      return 0.0;  // coordinates beyond what can be reckoned with
    }
    return std::round(length * steps) / steps;
  }

  void add(const Element& element, const Bar& bar) {
    const double length = bar.hasLength() ? lengthOf(bar) : 0.0;
    BarRow& row = m_rows[RowKey(bar.reference, bar.diameter, bar.grade, bar.adherence, bar.shape,
                                stepped(length))];
    if (row.sources.empty()) {
      row.mark = bar.reference;
      row.grade = bar.grade;
      row.adherence = bar.adherence;
      row.diameter = bar.diameter;
      row.shape = bar.shape;
      row.length = stepped(length);
      row.hasLength = bar.hasLength();
    }
    row.hidden += bar.isHidden ? 1U : 0U;
    ++row.drawn;
    addSource(row, element);
    const auto series = m_series.find(&element);
    if (series == m_series.end()) {
      return;
    }
    for (const Series& one : series->second) {
      row.inRepartitions += one.number;
      addSource(row, *one.element);
    }
  }

  // Rows whose lengths differ by one step of the list are one: the drawing's own rounding parts
  // them.
  void addOrMerge(BarRow row) {
    if (m_list.rows.empty() || !areAlike(m_list.rows.back(), row)) {
      m_list.rows.push_back(std::move(row));
      return;
    }
    BarRow& last = m_list.rows.back();
    last.drawn += row.drawn;
    last.inRepartitions += row.inRepartitions;
    last.hidden += row.hidden;
    for (const SourceElements& source : row.sources) {
      for (const Element* const element : source.elements) {
        addSource(last, *element);
      }
    }
  }

  [[nodiscard]] bool areAlike(const BarRow& a, const BarRow& b) const {
    constexpr double kOneStep = 1.01;
    const double step = std::pow(10.0, -m_unit.decimals);
    return a.mark == b.mark && a.grade == b.grade && a.adherence == b.adherence &&
           a.diameter == b.diameter && a.shape == b.shape &&
           std::abs(a.length - b.length) < kOneStep * step;
  }

  // Bars seen end-on go to another row of their mark, where there is one.
  void settleEndOn() {
    std::vector<BarRow>& rows = m_list.rows;
    std::map<std::int64_t, BarRow*> firstOfMark;
    for (BarRow& row : rows) {
      if (row.hasLength) {
        firstOfMark.emplace(row.mark, &row);
      }
    }
    for (BarRow& row : rows) {
      const auto first = firstOfMark.find(row.mark);
      if (row.hasLength || first == firstOfMark.end()) {
        continue;
      }
      for (const Element* const element : row.sources.front().elements) {
        first->second->endOn.push_back(element);
      }
      row.sources.clear();
    }
    std::erase_if(rows, [](const BarRow& row) { return row.sources.empty(); });
  }

  void sum() {
    std::map<std::pair<double, std::string>, BarSum> sums;
    for (const BarRow& row : m_list.rows) {
      BarSum& sum = sums[{row.diameter, row.grade}];
      sum.diameter = row.diameter;
      sum.grade = row.grade;
      sum.number += row.number();
      sum.length += row.totalLength();
      sum.mass += massOf(row.diameter, row.totalLength(), m_unit);
    }
    for (auto& [key, one] : sums) {
      m_list.mass += one.mass;
      m_list.sums.push_back(std::move(one));
    }
  }

  const TransferFile& m_file;
  ItemReader m_reader;
  const LengthUnit& m_unit;
  std::unordered_map<const Element*, std::vector<Series>> m_series;
  std::map<RowKey, BarRow> m_rows;
  BarList m_list;
};

}  // namespace

BarList makeBarList(const TransferFile& file, const LengthUnit& unit) {
  return Collector(file, unit).collect();
}

double massOf(double diameter, double length, const LengthUnit& unit) noexcept {
  const double metres = diameter * unit.inMetres;
  return std::numbers::pi / 4.0 * metres * metres * length * unit.inMetres * kSteelDensity;
}

}  // namespace quorvan::tool
