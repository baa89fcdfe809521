#include <tools/program.h>

#include <algorithm>
#include <exception>
#include <new>
#include <sstream>

#include <CLI/CLI.hpp>

#include <tools/commands/arguments.h>
#include <tools/commands/command_table.h>
#include <tools/text/nearest_word.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

// Line by line: what the user typed stands in them.
std::string printableLines(std::string_view text) {
  std::string lines;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    lines += printable(line) + '\n';
  }
  return lines;
}

// Help and version go to the output, complaints about the arguments to the messages.
int answer(const CLI::App& program, const CLI::ParseError& error, Console& console) {
  std::ostringstream out;
  std::ostringstream err;
  const int code = program.exit(error, out, err);
  console.out << out.str();
  console.err << printableLines(err.str());
  return code == 0 ? kSuccess : kFailure;
}

bool isUnknownCommand(const std::vector<std::string>& arguments) {
  return !arguments.empty() && !arguments.front().starts_with('-') &&
         std::ranges::none_of(allCommands(), [&](const Command* command) {
           return command->name == arguments.front();
         });
}

std::string unknownCommand(const std::string& typed) {
  std::vector<std::string> names;
  for (const Command* const command : allCommands()) {
    names.emplace_back(command->name);
  }
  const std::string nearest = nearestWord(typed, names);
  return "no command " + typed +
         (nearest.empty() ? "; quorvan --help lists them" : "; did you mean " + nearest + "?");
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
  if (isUnknownCommand(arguments)) {
    console.err << "quorvan: " << printable(unknownCommand(arguments.front())) << '\n';
    return kFailure;
  }
  Run run{console};
  const std::unique_ptr<CLI::App> program = programArguments(run);
  try {
    return parseAndRun(*program, arguments, run);
  } catch (const Failure& failure) {
    console.err << "quorvan: " << printable(failure.what()) << '\n';
  } catch (const std::bad_alloc&) {
    console.err << "quorvan: not enough memory\n";
  } catch (const std::exception& error) {
    console.err << "quorvan: " << printable(error.what()) << '\n';
  }
  return kFailure;
}

}  // namespace quorvan::tool
