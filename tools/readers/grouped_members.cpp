#include <tools/readers/grouped_members.h>

#include <algorithm>
#include <utility>

namespace quorvan::tool {

void addToGroup(std::vector<MemberGroup>& groups, std::string before, std::string_view type,
                std::string name) {
  const auto group = std::ranges::find_if(groups, [&](const MemberGroup& other) {
    return other.type == type && other.before.empty() && before.empty();
  });
  if (group == groups.end()) {
    groups.push_back({std::move(before), type, {std::move(name)}});
  } else {
    group->names.push_back(std::move(name));
  }
}

std::vector<std::string> listed(std::vector<std::string> names, std::string_view end) {
  for (std::string& name : names) {
    name.append(&name == &names.back() ? end : ",");
  }
  return names;
}

}  // namespace quorvan::tool
