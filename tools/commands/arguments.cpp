#include <tools/commands/arguments.h>

#include <CLI/CLI.hpp>

#include <tools/commands/command_table.h>

namespace quorvan::tool {

namespace {

constexpr const char* kDescription =
    "See what is in a transfer file. The file is only read, never changed.";

constexpr const char* kFooter =
    "Exit code: 0 nothing to report, 1 findings or differences, 2 failure.\n"
    "`quorvan COMMAND --help` shows the options of a command with examples.";

std::string footerOf(const Command& command) {
  std::string result;
  const ExitCodes& codes = command.exitCodes;
  if (!codes.findings.empty()) {
    result.append("Exit code: 0 ").append(codes.success).append(", 1 ").append(codes.findings);
    result.append(", 2 ").append(codes.failure).append(".\n");
  }
  result += "Examples:";
  std::string_view rest = command.examples;
  while (!rest.empty()) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    result.append("\n  ").append(line);
    rest.remove_prefix(std::min(rest.size(), line.size() + 1));
  }
  return result;
}

}  // namespace

std::unique_ptr<CLI::App> programArguments(Run& run) {
  auto program = std::make_unique<CLI::App>(kDescription, "quorvan");
  program->require_subcommand(1);
  program->set_version_flag("--version", "quorvan " QUORVAN_VERSION);
  program->footer(kFooter);
  for (const Command* const one : allCommands()) {
    CLI::App* const command =
        program->add_subcommand(std::string(one->name), std::string(one->summary));
    command->footer(footerOf(*one));
    one->addOptions(*command, run);
  }
  return program;
}

}  // namespace quorvan::tool
