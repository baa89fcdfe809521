#include <tools/check/rules.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include <tools/text/number_text.h>

namespace quorvan::tool {

void checkRepartition(const ElementIndex& index, const Element& element,
                      const std::vector<ItemValue>& items, FindingSink& sink) {
  const Repartition series = toRepartition(items);
  if (!barShapeOf(series.className)) {
    sink.add(findings::kRepartitionDangles, element, "DefClassName", '"' + series.className + '"',
             "the class of a bar or link", nodeOf(items, "DefClassName"));
  } else if (index.find(series.className, series.index) == nullptr) {
    sink.add(findings::kRepartitionDangles, element, "Index",
             series.className + ' ' + std::to_string(series.index) + ", which is not there",
             "the index of a " + series.className + " in the file", nodeOf(items, "Index"));
  }
  const std::size_t count = series.top.size();
  if (series.bottom.size() != count ||
      (series.positions.size() != count && series.positions.size() + 1 != count)) {
    sink.add(findings::kRepartitionLists, element, "Positions",
             std::to_string(count) + " top distances, " + std::to_string(series.bottom.size()) +
                 " bottom distances, " + std::to_string(series.positions.size()) + " positions",
             "equal numbers, or one position fewer", nodeOf(items, "Positions"));
  }
}

void SeriesViewRule::look(const Element& element, const Repartition& series) {
  if (const Bar* const bar = m_bars.find(series)) {
    m_twins.add(element, series, bar->reference);
  }
}

void SeriesViewRule::report() const {
  for (const TwinGroup& group : m_twins.groups()) {
    const std::int64_t view = group.mainView();
    const auto first = std::ranges::find(group.members, view, &TwinGroup::Member::viewPoint);
    for (const TwinGroup::Member& member : group.members) {
      if (member.viewPoint != view) {
        m_sink.add(findings::kSeriesSeenTwice, *member.element, "ViewPoint",
                   std::to_string(member.viewPoint) + ", with the mark, number and steps of " +
                       nameOf(m_file, *first->element) + " in view " + std::to_string(view),
                   "the bars of a mark in one view");
      }
    }
  }
}

void DegenerateSeriesRule::look(const Element& element, const std::vector<ItemValue>& items) {
  constexpr double kNoStep = 1e-6;
  const Repartition series = toRepartition(items);
  const std::vector<double> steps = series.spacings();
  const auto isNone = [](double step) { return std::abs(step) < kNoStep; };
  if (!steps.empty() && std::ranges::all_of(steps, isNone)) {
    m_sink.add(findings::kDegenerateSeries, element, "Positions",
               std::to_string(series.number()) + " bars with steps of 0", "a step between bars",
               nodeOf(items, "Positions"));
  }
  for (const ItemValue& item : items) {
    if (item.schema->kind == items::Kind::kPoint) {
      m_places.push_back({&element, &item.schema->name, item.node, item.point, std::nullopt});
    } else if (!item.numbers.empty()) {
      double most = 0.0;
      for (const double number : item.numbers) {
        most = std::max(most, std::abs(number));
      }
      m_places.push_back({&element, &item.schema->name, item.node, {}, most});
    }
  }
}

double DegenerateSeriesRule::howFar(const Place& one) const {
  return one.farthest.value_or(
      distance(one.point, {std::midpoint(m_drawing->least.x, m_drawing->most.x),
                           std::midpoint(m_drawing->least.y, m_drawing->most.y),
                           std::midpoint(m_drawing->least.z, m_drawing->most.z)}));
}

void DegenerateSeriesRule::report() const {
  constexpr double kTooFar = 1e6;  // times the drawing
  const double size = m_drawing ? distance(m_drawing->least, m_drawing->most) : 0.0;
  if (!(size > 0.0)) {
    return;
  }
  const Element* told = nullptr;  // once a repartition
  for (const Place& one : m_places) {
    const double far = howFar(one);
    if (far > kTooFar * size && one.element != told) {
      told = one.element;
      m_sink.add(findings::kDegenerateSeries, *one.element, *one.item,
                 rounded(far, 1) + " away in a drawing of " + rounded(size, 1),
                 "less than a million times the drawing's size", one.node);
    }
  }
}

}  // namespace quorvan::tool
