#include <tools/bvbs/writing/series_groups.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <utility>

namespace quorvan::tool::bvbs {

namespace {

// Rows joined by what they share; each names another of its set, and the first names itself.
class RowSets {
 public:
  explicit RowSets(std::size_t rows) : m_before(rows) {
    std::iota(m_before.begin(), m_before.end(), std::size_t{0});
  }

  std::size_t first(std::size_t row) {
    while (m_before[row] != row) {
      m_before[row] = m_before[m_before[row]];
      row = m_before[row];
    }
    return row;
  }

  void join(std::size_t a, std::size_t b) {
    const std::size_t one = first(a);
    const std::size_t other = first(b);
    m_before[std::max(one, other)] = std::min(one, other);
  }

 private:
  std::vector<std::size_t> m_before;
};

}  // namespace

std::vector<SeriesPlace> seriesPlaces(const std::vector<BarRow>& rows) {
  RowSets sets(rows.size());
  std::map<const Element*, std::size_t> firstOf;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (const SeriesShare& share : rows[i].series) {
      sets.join(firstOf.emplace(share.element, i).first->second, i);
    }
  }
  std::map<std::size_t, std::size_t> sizes;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    ++sizes[sets.first(i)];
  }
  std::vector<SeriesPlace> places(rows.size());
  std::map<std::size_t, int> groups;
  std::map<std::pair<std::size_t, std::int64_t>, int> members;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::size_t first = sets.first(i);
    if (sizes[first] > 1) {
      places[i].group = groups.emplace(first, static_cast<int>(groups.size()) + 1).first->second;
      places[i].member = ++members[{rows[i].drawing, rows[i].mark}];
    }
  }
  return places;
}

}  // namespace quorvan::tool::bvbs
