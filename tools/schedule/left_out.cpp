#include <tools/schedule/left_out.h>

#include <algorithm>
#include <string_view>

namespace quorvan::tool {

namespace {

constexpr std::string_view kNeeded[] = {"Point",       "NoPoints",      "HookLength",
                                        "FrameRadius", "RecoverLength", "Diameter"};

bool isNeeded(std::string_view item) {
  return std::ranges::any_of(kNeeded,
                             [item](std::string_view stem) { return item.starts_with(stem); });
}

bool isUnread(ProblemKind kind) {
  return kind == ProblemKind::kMissing || kind == ProblemKind::kMistyped ||
         kind == ProblemKind::kNoNumber || kind == ProblemKind::kCountDisagrees;
}

}  // namespace

std::string unreadItem(const std::vector<ItemProblem>& problems) {
  for (const ItemProblem& problem : problems) {
    if (isUnread(problem.kind) && isNeeded(problem.item)) {
      return problem.item;
    }
  }
  return {};
}

bool isReckonable(double metres) noexcept {
  constexpr double kMost = 1e7;
  return metres > 0.0 && metres < kMost;
}

}  // namespace quorvan::tool
