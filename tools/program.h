// The command-line program `quorvan`.
#pragma once

#include <string>
#include <vector>

#include <tools/console/console.h>

namespace quorvan::tool {

/// Runs the program with these arguments (UTF-8, without the program's name); gives its exit code.
int runProgram(const std::vector<std::string>& arguments, Console& console);

}  // namespace quorvan::tool
