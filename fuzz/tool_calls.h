// The command-line program, run within a fuzz target on files of the current folder.
#pragma once

#include <string>
#include <vector>

namespace quorvan::fuzz {

struct ToolCall {
  int status;
  std::string out;
};

/// Runs the program. Ends the process when it gives any exit code but 0, 1 and 2.
ToolCall callTool(const std::vector<std::string>& arguments);

void writeBytes(const std::string& name, const std::string& bytes);
std::string readBytes(const std::string& name);

}  // namespace quorvan::fuzz
