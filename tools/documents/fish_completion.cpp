#include <tools/documents/documents.h>

#include <sstream>

namespace quorvan::tool {

namespace {

std::string fishQuoted(std::string_view text) {
  std::string result = "'";
  for (const char unit : text) {
    if (unit == '\'' || unit == '\\') {
      result += '\\';
    }
    result += unit;
  }
  return result + '\'';
}

std::string wordsOf(const Argument& argument) {
  std::string result;
  for (const std::string& word : argument.words) {
    result += (result.empty() ? "" : " ") + word;
  }
  return fishQuoted(result);
}

// How an option takes its value: of words and numbers, no file is offered.
std::string fishValue(const Argument& option) {
  switch (option.value) {
    case Argument::Value::kNone:
      return {};
    case Argument::Value::kFile:
      return " -r -F";
    case Argument::Value::kNumber:
      return " -x";
    case Argument::Value::kWord:
      break;
  }
  return " -x -a " + wordsOf(option);
}

void writeOption(const std::string& condition, const Argument& option, std::ostream& out) {
  out << "complete -c quorvan -n " << condition;
  if (!option.shortName.empty()) {
    out << " -s " << option.shortName.substr(1);
  }
  out << " -l " << option.name.substr(2) << fishValue(option) << " -d "
      << fishQuoted(option.description) << '\n';
}

void writeFishCommand(const CommandArguments& one, std::ostream& out) {
  const std::string name(one.command->name);
  out << "\ncomplete -c quorvan -n __fish_use_subcommand -f -a " << name << " -d "
      << fishQuoted(one.command->summary) << '\n';
  const std::string seen = "__fish_seen_subcommand_from " + name;
  for (const Argument& option : one.options) {
    writeOption(fishQuoted(seen), option, out);
  }
  for (std::size_t place = 0; place < one.positionals.size(); ++place) {
    const Argument& argument = one.positionals[place];
    if (argument.value == Argument::Value::kWord) {
      // Behind the program, the command and the arguments before it.
      out << "complete -c quorvan -n "
          << fishQuoted(seen + "; and test (count (commandline -opc)) -ge " +
                        std::to_string(place + 2))
          << " -f -a " << wordsOf(argument) << " -d " << fishQuoted(argument.description) << '\n';
    }
  }
}

}  // namespace

std::string fishCompletion(const ProgramArguments& program) {
  std::ostringstream out;
  out << "# Completion of quorvan for fish.\n\n";
  for (const Argument& option : program.options) {
    writeOption("__fish_use_subcommand", option, out);
  }
  for (const CommandArguments& one : program.commands) {
    writeFishCommand(one, out);
  }
  return out.str();
}

}  // namespace quorvan::tool
