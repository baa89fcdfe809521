#include <tools/documents/documents.h>

#include <sstream>

namespace quorvan::tool {

namespace {

constexpr std::string_view kHead = R"(# Completion of quorvan for bash.

_quorvan_offer() {
  mapfile -t COMPREPLY < <(compgen -W "$1" -- "$2")
}

_quorvan_files() {
  mapfile -t COMPREPLY < <(compgen -f -- "$1")
  compopt -o filenames 2>/dev/null
}

_quorvan() {
  local word=${COMP_WORDS[COMP_CWORD]} last=$((COMP_CWORD - 1))
  local command='' place=0 i
  COMPREPLY=()
  # "--unit=m" comes as three words.
  if [[ $word == '=' ]]; then
    word=''
  elif [[ ${COMP_WORDS[last]} == '=' ]]; then
    last=$((last - 1))
  fi
)";

constexpr std::string_view kWordsBefore = R"(
  # The command, and how many arguments without a name stand before the word.
  for ((i = 1; i <= last; i++)); do
    if [[ -z $command ]]; then
      [[ ${COMP_WORDS[i]} == -* ]] || command=${COMP_WORDS[i]}
      continue
    fi
    case "$command ${COMP_WORDS[i]}" in
)";

constexpr std::string_view kTail = R"(  esac
}

complete -F _quorvan quorvan
)";

std::string joined(const std::vector<std::string>& words) {
  std::string result;
  for (const std::string& word : words) {
    result += (result.empty() ? "" : " ") + word;
  }
  return result;
}

// The patterns of an option of a command: "'draw -o' | 'draw --output'".
std::string patternsOf(const CommandArguments& one, const Argument& option) {
  const std::string command = '\'' + std::string(one.command->name) + ' ';
  return (option.shortName.empty() ? "" : command + option.shortName + "' | ") + command +
         option.name + '\'';
}

// What is offered for the value of an argument.
std::string offerOf(const Argument& argument) {
  switch (argument.value) {
    case Argument::Value::kFile:
      return "_quorvan_files \"$word\"";
    case Argument::Value::kWord:
      return "_quorvan_offer '" + joined(argument.words) + "' \"$word\"";
    case Argument::Value::kNumber:
    case Argument::Value::kNone:
      break;
  }
  return ":";
}

// The patterns of all options that `isWanted`, or nothing.
template <class Condition>
std::string patternsOf(const ProgramArguments& program, const Condition& isWanted) {
  std::string result;
  for (const CommandArguments& one : program.commands) {
    for (const Argument& option : one.options) {
      if (isWanted(option)) {
        result += (result.empty() ? "" : " | ") + patternsOf(one, option);
      }
    }
  }
  return result;
}

// While arguments are counted, the value of an option is none of them.
void writeSkips(const ProgramArguments& program, std::ostream& out) {
  const auto hasValue = [](const Argument& option) {
    return option.value != Argument::Value::kNone;
  };
  out << "      " << patternsOf(program, hasValue) << ")\n"
      << "        [[ ${COMP_WORDS[i + 1]} == '=' ]] && i=$((i + 1))\n"
         "        i=$((i + 1))\n        ;;\n"
         "      \"$command -\"* | \"$command =\") ;;\n"
         "      *) place=$((place + 1)) ;;\n    esac\n  done\n";
}

void writeValues(const ProgramArguments& program, std::ostream& out) {
  out << "\n  case \"$command ${COMP_WORDS[last]}\" in\n";
  const auto isNumber = [](const Argument& option) {
    return option.value == Argument::Value::kNumber;
  };
  out << "    " << patternsOf(program, isNumber) << ") return ;;\n";
  for (const CommandArguments& one : program.commands) {
    for (const Argument& option : one.options) {
      if (option.value == Argument::Value::kFile || option.value == Argument::Value::kWord) {
        out << "    " << patternsOf(one, option) << ")\n      " << offerOf(option)
            << "\n      return\n      ;;\n";
      }
    }
  }
  out << "  esac\n";
}

std::string optionNames(const std::vector<Argument>& options) {
  std::string result;
  for (const Argument& option : options) {
    result += (result.empty() ? "" : " ") + option.name;
  }
  return result;
}

void writeOptions(const ProgramArguments& program, std::ostream& out) {
  out << "\n  if [[ $word == -* ]]; then\n    case $command in\n"
      << "      '') _quorvan_offer '" << optionNames(program.options) << "' \"$word\" ;;\n";
  for (const CommandArguments& one : program.commands) {
    out << "      " << one.command->name << ") _quorvan_offer '" << optionNames(one.options)
        << "' \"$word\" ;;\n";
  }
  out << "    esac\n    return\n  fi\n";
}

void writePositionals(const ProgramArguments& program, std::ostream& out) {
  std::vector<std::string> commands;
  for (const CommandArguments& one : program.commands) {
    commands.emplace_back(one.command->name);
  }
  out << "\n  case \"$command $place\" in\n    ' 0') _quorvan_offer '" << joined(commands)
      << "' \"$word\" ;;\n";
  for (const CommandArguments& one : program.commands) {
    for (std::size_t place = 0; place < one.positionals.size(); ++place) {
      const Argument& argument = one.positionals[place];
      out << "    '" << one.command->name << ' '
          << (argument.takesMany ? "'*" : std::to_string(place) + '\'') << ") " << offerOf(argument)
          << " ;;\n";
    }
  }
}

}  // namespace

std::string bashCompletion(const ProgramArguments& program) {
  std::ostringstream out;
  out << kHead << kWordsBefore;
  writeSkips(program, out);
  writeValues(program, out);
  writeOptions(program, out);
  writePositionals(program, out);
  out << kTail;
  return out.str();
}

}  // namespace quorvan::tool
