#include <tools/check/finding.h>

namespace quorvan::tool {

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
