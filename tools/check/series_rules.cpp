#include <tools/check/rules.h>

#include <algorithm>

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

}  // namespace quorvan::tool
