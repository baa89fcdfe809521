#include <tools/draw/labels/bars_by_mark.h>

#include <algorithm>

namespace quorvan::tool {

BarsByMark::BarsByMark(const BarList& list) : m_unit(list.options.unit) {
  for (const BarRow& row : list.rows) {
    MarkedBars bars{row.mark, row.diameter, row.grade, row.adherence};
    if (m_bars.empty() || steelOf(m_bars.back()) != steelOf(bars)) {
      m_bars.push_back(bars);
    }
    MarkedBars& all = m_bars.back();
    all.number += row.number;
    if (row.hasLength) {
      const double shortest = metresOf(row.shortest);
      const bool isFirst = all.longestMetres == 0.0;
      all.shortestMetres = isFirst ? shortest : std::min(all.shortestMetres, shortest);
      all.longestMetres = std::max(all.longestMetres, metresOf(row.longest));
      all.isLowerBound = all.isLowerBound || row.isLowerBound;
    }
  }
}

const MarkedBars* BarsByMark::find(const Bar& bar) const {
  const double diameter = listedDiameter(*m_unit, bar.diameter);
  const Steel steel(bar.reference, diameter, bar.grade, bar.adherence);
  const auto at = std::ranges::lower_bound(m_bars, steel, {}, steelOf);
  if (at != m_bars.end() && steelOf(*at) == steel) {
    return &*at;
  }
  if (bar.hasLength()) {
    return nullptr;
  }
  // The list counts a bar seen end-on among those of its grade, whatever their adherence.
  const auto other = std::ranges::lower_bound(
      m_bars, Steel(bar.reference, diameter, bar.grade, std::string_view()), {}, steelOf);
  const bool isAlike = other != m_bars.end() && other->mark == bar.reference &&
                       other->diameter == diameter && other->grade == bar.grade;
  return isAlike ? &*other : nullptr;
}

bool BarsByMark::has(std::int64_t mark, double diameter) const {
  const auto at =
      std::ranges::lower_bound(m_bars, Steel(mark, diameter - 0.5, {}, {}), {}, steelOf);
  return at != m_bars.end() && at->mark == mark && at->diameter < diameter + 0.5;
}

}  // namespace quorvan::tool
