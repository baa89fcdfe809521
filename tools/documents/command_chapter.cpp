#include <tools/documents/documents.h>

#include <sstream>

namespace quorvan::tool {

namespace {

// A cell of a table, in which a bar would end it.
std::string cell(std::string_view text) {
  std::string result;
  for (const char unit : text) {
    if (unit == '|') {
      result += '\\';
    }
    result += unit;
  }
  return result;
}

void writeArgument(const Argument& argument, std::ostream& out) {
  out << "| `" << argument.usage() << "` | " << cell(argument.description);
  if (!argument.standard.empty()) {
    out << "; `" << argument.standard << "` unless given";
  }
  out << " |\n";
}

// What stands behind blanks says what the line is for; a shell takes it for a comment.
std::string asCommented(std::string line) {
  if (const std::size_t blanks = line.find("  "); blanks != std::string::npos) {
    line.insert(line.find_first_not_of(' ', blanks), "# ");
  }
  return line;
}

void writeCommand(const CommandArguments& one, std::ostream& out) {
  out << "\n### `" << one.synopsis() << "`\n\n"
      << one.command->description << "\n\n| argument | meaning |\n|---|---|\n";
  for (const Argument& argument : one.positionals) {
    writeArgument(argument, out);
  }
  for (const Argument& option : one.options) {
    if (option.name != "--help") {
      writeArgument(option, out);
    }
  }
  out << "\n```sh\n";
  std::istringstream lines{std::string(one.command->examples)};
  for (std::string line; std::getline(lines, line);) {
    out << asCommented(line) << '\n';
  }
  out << "```\n";
}

void writeExitCodes(const ProgramArguments& program, std::ostream& out) {
  out << "| exit code of | 0 | 1 | 2 |\n|---|---|---|---|\n";
  for (const CommandArguments& one : program.commands) {
    const ExitCodes& codes = one.command->exitCodes;
    out << "| `" << one.command->name << "` | " << codes.success << " | "
        << (codes.findings.empty() ? "\u2013" : codes.findings) << " | " << codes.failure << " |\n";
  }
}

}  // namespace

std::string commandChapter(const ProgramArguments& program) {
  std::ostringstream out;
  out << "| command | shows |\n|---|---|\n";
  for (const CommandArguments& one : program.commands) {
    out << "| `quorvan " << one.command->name << "` | " << cell(one.command->summary) << " |\n";
  }
  out << '\n';
  writeExitCodes(program, out);
  for (const CommandArguments& one : program.commands) {
    writeCommand(one, out);
  }
  return out.str();
}

}  // namespace quorvan::tool
