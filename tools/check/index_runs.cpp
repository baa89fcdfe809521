#include <tools/check/index_runs.h>

#include <iterator>

namespace quorvan::tool {

bool IndexRuns::add(std::int64_t index) {
  const auto next = m_runs.upper_bound(index);
  const auto before = next == m_runs.begin() ? m_runs.end() : std::prev(next);
  if (before != m_runs.end() && index <= before->second) {
    return false;
  }
  const bool meetsNext = next != m_runs.end() && next->first == index + 1;
  const std::int64_t last = meetsNext ? next->second : index;
  if (before != m_runs.end() && before->second == index - 1) {
    before->second = last;
  } else {
    m_runs.emplace_hint(next, index, last);
  }
  if (meetsNext) {
    m_runs.erase(next);
  }
  return true;
}

}  // namespace quorvan::tool
