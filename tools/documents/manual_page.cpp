#include <tools/documents/documents.h>

#include <sstream>

namespace quorvan::tool {

namespace {

// A line of text as roff takes it.
std::string roff(std::string_view text) {
  std::string result;
  for (const char unit : text) {
    if (unit == '\\') {
      result += "\\e";
    } else if (unit == '-') {
      result += "\\-";
    } else if (unit == '`') {
      result += "\\(ga";
    } else {
      result += unit;
    }
  }
  if (result.starts_with('.') || result.starts_with('\'')) {
    result.insert(0, "\\&");
  }
  return result;
}

void writeSynopsis(const ProgramArguments& program, std::ostream& out) {
  out << ".SH SYNOPSIS\n.nf\n";
  for (const CommandArguments& one : program.commands) {
    out << roff(one.synopsis()) << '\n';
  }
  out << ".fi\n";
}

// Names as they are typed in bold, what they stand for in italics.
std::string styledUsage(const Argument& argument) {
  if (!argument.isOption()) {
    return "\\fI" + roff(argument.usage()) + "\\fR";
  }
  const std::string names =
      (argument.shortName.empty() ? "" : "\\fB" + roff(argument.shortName) + "\\fR, ") + "\\fB" +
      roff(argument.name) + "\\fR";
  return argument.valueName.empty() ? names : names + " \\fI" + roff(argument.valueName) + "\\fR";
}

void writeManualArgument(const Argument& argument, std::ostream& out) {
  out << ".TP\n" << styledUsage(argument) << '\n' << roff(argument.description);
  if (!argument.standard.empty()) {
    out << "; " << roff(argument.standard) << " unless given";
  }
  out << ".\n";
}

void writeExitCodes(const ExitCodes& codes, std::ostream& out) {
  if (codes.findings.empty()) {
    return;
  }
  out << ".PP\nExit code: 0 " << roff(codes.success) << ", 1 " << roff(codes.findings) << ", 2 "
      << roff(codes.failure) << ".\n";
}

void writeManualCommand(const CommandArguments& one, std::ostream& out) {
  out << ".SS " << one.command->name << '\n' << roff(one.command->description) << '\n';
  for (const Argument& argument : one.positionals) {
    writeManualArgument(argument, out);
  }
  for (const Argument& argument : one.options) {
    if (argument.name != "--help") {
      writeManualArgument(argument, out);
    }
  }
  writeExitCodes(one.command->exitCodes, out);
}

void writeExamples(const ProgramArguments& program, std::ostream& out) {
  out << ".SH EXAMPLES\n.nf\n";
  for (const CommandArguments& one : program.commands) {
    std::istringstream lines{std::string(one.command->examples)};
    for (std::string line; std::getline(lines, line);) {
      out << roff(line) << '\n';
    }
  }
  out << ".fi\n";
}

}  // namespace

std::string manualPage(const ProgramArguments& program) {
  std::ostringstream out;
  out << ".TH QUORVAN 1 \"\" \"" << roff(program.version) << "\" \"Quorvan\"\n"
      << ".SH NAME\nquorvan \\- see what is in a reinforcement transfer file\n";
  writeSynopsis(program, out);
  out << ".SH DESCRIPTION\n.B quorvan\n"
         "reads transfer files, with which CAD programs hand finished reinforcement drawings to "
         "each other.\nThe files that it reads are never changed.\n";
  for (const Argument& option : program.options) {
    writeManualArgument(option, out);
  }
  out << ".SH COMMANDS\n";
  for (const CommandArguments& one : program.commands) {
    writeManualCommand(one, out);
  }
  out << ".SH EXIT STATUS\n"
         "0 nothing to report, 1 findings or differences, 2 failure.\n";
  writeExamples(program, out);
  return out.str();
}

}  // namespace quorvan::tool
