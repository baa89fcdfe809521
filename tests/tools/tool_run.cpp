#include <tests/support/test_data.h>
#include <tests/tools/tool_run.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include <tests/support/saved_file.h>
#include <tools/program.h>

namespace quorvan::test {

ToolRun runTool(const std::vector<std::string>& arguments) {
  std::ostringstream out;
  std::ostringstream err;
  tool::Console console{out, err};
  const int status = tool::runProgram(arguments, console);
  return {status, out.str(), err.str()};
}

void expectGolden(const std::string& name, const std::string& text) {
  const std::string path = quorvan::test::dataPath("tools/golden/") + name;
  if (std::getenv("QUORVAN_UPDATE_GOLDEN") != nullptr) {
    std::ofstream(path, std::ios::binary) << text;
  }
  EXPECT_EQ(text, fileBytes(path)) << path;
}

}  // namespace quorvan::test
