// Members that are declared together, as languages have it that allow several names a type.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvan::tool {

/// Members of one type.
struct MemberGroup {
  std::string before;  // what stands before the declaration
  std::string_view type;
  std::vector<std::string> names;
};

/// Puts the name to those of its type, which stand where the first of them does; one with something
/// before it stands alone.
void addToGroup(std::vector<MemberGroup>& groups, std::string before, std::string_view type,
                std::string name);

/// The names as words, each with a comma behind it, the last with `end`.
std::vector<std::string> listed(std::vector<std::string> names, std::string_view end);

}  // namespace quorvan::tool
