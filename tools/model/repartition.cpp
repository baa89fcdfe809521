#include <tools/model/repartition.h>

#include <algorithm>
#include <cmath>

#include <quorvan/text/numbers.h>

#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr double kEqualSpacing = 1e-3;
constexpr int kSpacingDecimals = 1;
constexpr std::size_t kMostRuns = 6;

}  // namespace

std::vector<double> Repartition::spacings() const {
  const std::size_t gaps = number() == 0 ? 0 : number() - 1;
  std::vector<double> result = positions;
  result.resize(std::min(result.size(), gaps));
  return result;
}

Repartition toRepartition(const std::vector<ItemValue>& items) {
  Repartition series;
  for (const ItemValue& item : items) {
    const std::string_view name = item.schema->name;
    if (name == "Point1") {
      series.start = item.point;
    } else if (name == "Point2") {
      series.end = item.point;
    } else if (name == "Axis") {
      series.axis = item.point;
    } else if (name == "AxisDistancesTop") {
      series.top = item.numbers;
    } else if (name == "AxisDistancesBottom") {
      series.bottom = item.numbers;
    } else if (name == "Positions") {
      series.positions = item.numbers;
    } else if (name == "DefClassName") {
      series.className = item.text;
    } else if (name == "Index") {
      series.index = item.integer;
    } else if (name == "ViewPoint") {
      series.viewPoint = item.integer;
    } else if (name == "Hidden") {
      series.isHidden = item.flag;
    }
  }
  return series;
}

std::string spacingText(const std::vector<double>& spacings) {
  std::string text;
  std::size_t runs = 0;
  for (std::size_t at = 0; at < spacings.size();) {
    std::size_t end = at + 1;
    while (end < spacings.size() && std::abs(spacings[end] - spacings[at]) < kEqualSpacing) {
      ++end;
    }
    if (++runs > kMostRuns) {
      return text + ", ...";
    }
    text += text.empty() ? "" : ", ";
    if (end - at != spacings.size() && end - at > 1) {
      text += std::to_string(end - at) + " x ";
    }
    text += rounded(spacings[at], kSpacingDecimals);
    at = end;
  }
  return text;
}

ElementIndex::ElementIndex(const TransferFile& file) {
  for (const Element& element : file.elements()) {
    const std::string_view index = file.indexOf(element);
    if (!index.empty()) {
      m_classes[element.className()].push_back({parseLong(index), &element});
    }
  }
  for (auto& [className, entries] : m_classes) {
    if (!std::ranges::is_sorted(entries, {}, &Entry::index)) {
      std::ranges::stable_sort(entries, {}, &Entry::index);
    }
  }
}

const Element* ElementIndex::find(std::string_view className, std::int64_t index) const {
  const auto entries = m_classes.find(className);
  if (entries == m_classes.end()) {
    return nullptr;
  }
  const auto first = std::ranges::lower_bound(entries->second, index, {}, &Entry::index);
  return first == entries->second.end() || first->index != index ? nullptr : first->element;
}

}  // namespace quorvan::tool
