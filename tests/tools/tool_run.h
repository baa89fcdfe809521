// Runs the program in the process of the test.
#pragma once

#include <string>
#include <vector>

namespace quorvan::test {

struct ToolRun {
  int status;
  std::string out;
  std::string err;
};

ToolRun runTool(const std::vector<std::string>& arguments);

/// Compares with the bytes of the file tests/tools/golden/`name`. With the environment variable
/// QUORVAN_UPDATE_GOLDEN set, writes that file instead.
void expectGolden(const std::string& name, const std::string& text);

}  // namespace quorvan::test
