#include <tools/schedule/row_elements.h>

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace quorvan::tool {

namespace {

void addShares(const BarRow& row, BarRow& to) {
  std::unordered_map<const Element*, std::size_t> places;
  for (std::size_t i = 0; i < to.series.size(); ++i) {
    places.emplace(to.series[i].element, i);
  }
  for (const SeriesShare& share : row.series) {
    if (const auto known = places.find(share.element); known != places.end()) {
      to.series[known->second].number += share.number;
    } else {
      to.series.push_back(share);
    }
  }
  for (const std::vector<const Element*>& twins : row.twins) {
    if (std::ranges::find(to.twins, twins) == to.twins.end()) {
      to.twins.push_back(twins);
    }
  }
}

}  // namespace

void addSource(BarRow& row, const Element& element) {
  for (SourceElements& known : row.sources) {
    if (known.className == element.className()) {
      if (known.elements.back() != &element) {
        known.elements.push_back(&element);
      }
      return;
    }
  }
  row.sources.push_back({element.className(), {&element}});
}

void addElementsOf(const BarRow& row, BarRow& to, ItemReader& reader) {
  std::unordered_set<const Element*> known;
  if (row.repeated != 0) {  // others are in one row
    for (const SourceElements& source : to.sources) {
      known.insert(source.elements.begin(), source.elements.end());
    }
  }
  to.drawn += row.drawn;
  to.repeated += row.repeated;
  to.hidden += row.hidden;
  for (const SourceElements& source : row.sources) {
    for (const Element* const element : source.elements) {
      if (!known.contains(element)) {
        addSource(to, *element);
      } else if (const auto shape = barShapeOf(*element)) {
        --to.drawn;
        --to.repeated;
        to.hidden -= toBar(*shape, reader.read(*element)).isHidden ? 1U : 0U;
      }
    }
  }
  addShares(row, to);
}

}  // namespace quorvan::tool
