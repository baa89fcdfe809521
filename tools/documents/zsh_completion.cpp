#include <tools/documents/documents.h>

#include <sstream>

namespace quorvan::tool {

namespace {

// A text between apostrophes, in which "[", "]" and ":" part what _arguments reads.
std::string zshQuoted(std::string_view text) {
  std::string result;
  for (const char unit : text) {
    if (unit == '\'') {
      result += "'\\''";
      continue;
    }
    if (unit == '[' || unit == ']' || unit == ':' || unit == '\\') {
      result += '\\';
    }
    result += unit;
  }
  return result;
}

// ":UNIT:(mm cm m)".
std::string zshValue(const Argument& argument) {
  const std::string title = ':' + zshQuoted(argument.valueName) + ':';
  switch (argument.value) {
    case Argument::Value::kNone:
      return {};
    case Argument::Value::kFile:
      return title + "_files";
    case Argument::Value::kNumber:
      return title + ' ';
    case Argument::Value::kWord:
      break;
  }
  std::string words;
  for (const std::string& word : argument.words) {
    words += (words.empty() ? "" : " ") + word;
  }
  return title + '(' + words + ')';
}

std::string specOf(const Argument& option) {
  std::string others = option.shortName.empty() ? "" : option.shortName + ' ' + option.name;
  for (const std::string& other : option.excludes) {
    others += (others.empty() ? "" : " ") + other;
  }
  const std::string equals = option.value == Argument::Value::kNone ? "" : "=";
  const std::string names = option.shortName.empty()
                                ? '\'' + option.name + equals
                                : '{' + option.shortName + ',' + option.name + equals + "}'";
  const std::string before =
      others.empty() ? "" : "'(" + others + ")" + (option.shortName.empty() ? "" : "'");
  // Without a short name the list of others and the name stand between one pair of apostrophes.
  return before + (before.empty() || !option.shortName.empty() ? names : names.substr(1)) + '[' +
         zshQuoted(option.description) + ']' + zshValue(option) + '\'';
}

void writeSpecs(const CommandArguments& one, std::ostream& out) {
  out << "        " << one.command->name << ")\n          _arguments -S";
  for (const Argument& option : one.options) {
    out << " \\\n            " << specOf(option);
  }
  for (std::size_t place = 0; place < one.positionals.size(); ++place) {
    const Argument& argument = one.positionals[place];
    out << " \\\n            '"
        << (argument.takesMany ? "*" : std::to_string(place + 1) + (argument.isRequired ? "" : ":"))
        << zshValue(argument) << '\'';
  }
  out << "\n          ;;\n";
}

}  // namespace

std::string zshCompletion(const ProgramArguments& program) {
  std::ostringstream out;
  out << "#compdef quorvan\n# Completion of quorvan for zsh.\n\n_quorvan() {\n"
      << "  local state line\n  local -a commands\n  _arguments -C";
  for (const Argument& option : program.options) {
    out << " \\\n    " << specOf(option);
  }
  out << " \\\n    '1:command:->command' '*::argument:->argument'\n"
      << "  case $state in\n    command)\n      commands=(\n";
  for (const CommandArguments& one : program.commands) {
    out << "        '" << one.command->name << ':' << zshQuoted(one.command->summary) << "'\n";
  }
  out << "      )\n      _describe command commands\n      ;;\n"
      << "    argument)\n      case $words[1] in\n";
  for (const CommandArguments& one : program.commands) {
    writeSpecs(one, out);
  }
  out << "      esac\n      ;;\n  esac\n}\n\n_quorvan \"$@\"\n";
  return out.str();
}

}  // namespace quorvan::tool
