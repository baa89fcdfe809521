#include <tools/program.h>

#include <algorithm>
#include <exception>
#include <new>
#include <sstream>

#include <tools/commands/arguments.h>

namespace quorvan::tool {

namespace {

// Help and version go to the output, complaints about the arguments to the messages.
int answer(const CLI::App& program, const CLI::ParseError& error, Console& console) {
  std::ostringstream out;
  std::ostringstream err;
  const int code = program.exit(error, out, err);
  console.out << out.str();
  console.err << err.str();
  return code == 0 ? kSuccess : kFailure;
}

int parseAndRun(CLI::App& program, std::vector<std::string> arguments, Run& run) {
  // The library takes them from the back.
  std::reverse(arguments.begin(), arguments.end());
  try {
    program.parse(arguments);
  } catch (const CLI::ParseError& error) {
    return answer(program, error, run.console);
  }
  return run.status;
}

}  // namespace

int runProgram(const std::vector<std::string>& arguments, Console& console) {
  Run run{console};
  const std::unique_ptr<CLI::App> program = programArguments(run);
  try {
    return parseAndRun(*program, arguments, run);
  } catch (const Failure& failure) {
    console.err << "quorvan: " << failure.what() << '\n';
  } catch (const std::bad_alloc&) {
    console.err << "quorvan: not enough memory\n";
  } catch (const std::exception& error) {
    console.err << "quorvan: " << error.what() << '\n';
  }
  return kFailure;
}

}  // namespace quorvan::tool
