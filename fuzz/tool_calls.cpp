#include <fuzz/memory_files.h>
#include <fuzz/tool_calls.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include <tools/program.h>

namespace quorvan::fuzz {

ToolCall callTool(const std::vector<std::string>& arguments) {
  std::ostringstream out;
  std::ostringstream err;
  tool::Console console{out, err};
  const int status = tool::runProgram(arguments, console);
  require(status >= 0 && status <= 2, "an exit code that is none");
  require(status != 2 || !out.str().empty() || !err.str().empty(), "a failure without a word");
  return {status, out.str()};
}

void writeBytes(const std::string& name, const std::string& bytes) {
  std::ofstream(name, std::ios::binary) << bytes;
}

std::string readBytes(const std::string& name) {
  std::ifstream in(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace quorvan::fuzz
