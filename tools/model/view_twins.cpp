#include <tools/model/view_twins.h>

#include <algorithm>
#include <cmath>

namespace quorvan::tool {

namespace {

constexpr double kStep = 1e-3;       // steps that differ by less count as equal
constexpr double kMostSteps = 1e15;  // beyond it a step is no number of thousandths
constexpr std::int64_t kNoStep = -1;

std::int64_t stepOf(double spacing) {
  const double steps = std::round(std::abs(spacing) / kStep);
  return steps < kMostSteps ? static_cast<std::int64_t>(steps) : kNoStep;
}

}  // namespace

std::int64_t TwinGroup::mainView() const {
  std::map<std::int64_t, std::size_t> counts;
  for (const Member& member : members) {
    ++counts[member.viewPoint];
  }
  std::int64_t most = members.front().viewPoint;
  for (const Member& member : members) {
    if (counts[member.viewPoint] > counts[most]) {
      most = member.viewPoint;
    }
  }
  return most;
}

void ViewTwins::add(const Element& element, const Repartition& series, std::int64_t mark) {
  Steps steps;
  for (const double spacing : series.spacings()) {
    steps.push_back(stepOf(spacing));
  }
  if (steps.empty()) {
    return;
  }
  Steps backwards(steps.rbegin(), steps.rend());
  m_groups[{mark, std::min(steps, backwards)}].members.push_back({&element, series.viewPoint});
}

std::vector<TwinGroup> ViewTwins::groups() const {
  std::vector<TwinGroup> found;
  for (const auto& entry : m_groups) {
    const TwinGroup& group = entry.second;
    const auto isElsewhere = [&group](const TwinGroup::Member& member) {
      return member.viewPoint != group.members.front().viewPoint;
    };
    if (std::ranges::any_of(group.members, isElsewhere)) {
      found.push_back(group);
    }
  }
  return found;
}

}  // namespace quorvan::tool
