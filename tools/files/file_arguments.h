// The files that arguments name.
#pragma once

#include <string>
#include <vector>

namespace quorvan::tool {

/// The names with each folder replaced by the files in it that end in .xml, and each pattern with *
/// or ? by the files that it fits, as far as the shell has not done so; both in the order of their
/// names. A folder without such files raises Failure; a pattern that fits none stays as it is.
std::vector<std::string> namedFiles(const std::vector<std::string>& arguments);

}  // namespace quorvan::tool
