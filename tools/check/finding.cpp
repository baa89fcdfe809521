#include <tools/check/finding.h>

#include <algorithm>
#include <tuple>

namespace quorvan::tool {

std::int64_t FileFindings::count(Severity severity) const noexcept {
  return std::ranges::count_if(
      findings, [severity](const Finding& one) { return one.kind->severity == severity; });
}

void sortByPlace(std::vector<Finding>& findings) {
  std::ranges::stable_sort(findings, {}, [](const Finding& one) {
    return std::tuple(one.position.line, one.position.column);
  });
}

std::string_view severityName(Severity severity) noexcept {
  switch (severity) {
    case Severity::kNote:
      return "note";
    case Severity::kWarning:
      return "warning";
    case Severity::kError:
      return "error";
  }
  return {};
}

}  // namespace quorvan::tool
