// The arguments of the program and of its commands, as the documents tell them.
#pragma once

#include <string>
#include <vector>

#include <tools/commands/command.h>

namespace quorvan::tool {

struct Argument {
  enum class Value { kNone, kFile, kWord, kNumber };

  /// "--unit", or "FILE" where it goes by its place.
  std::string name;
  /// "-o", or empty.
  std::string shortName;
  std::string description;
  Value value = Value::kNone;
  /// What a document calls the value: "UNIT".
  std::string valueName;
  /// The value where none is given, or empty.
  std::string standard;
  /// What a shell offers for kWord.
  std::vector<std::string> words;
  /// Names of options that do not go with it.
  std::vector<std::string> excludes;
  bool isRequired = false;
  bool takesMany = false;

  [[nodiscard]] bool isOption() const { return name.front() == '-'; }
  /// "--unit UNIT", "-o, --output OUTPUT", "--json", "FILE...".
  [[nodiscard]] std::string usage() const;
};

struct CommandArguments {
  const Command* command;
  std::vector<Argument> options;
  std::vector<Argument> positionals;

  /// "quorvan draw [OPTION]... -o OUTPUT FILE".
  [[nodiscard]] std::string synopsis() const;
};

struct ProgramArguments {
  /// "quorvan 1.0.0".
  std::string version;
  /// Those that stand before a command.
  std::vector<Argument> options;
  std::vector<CommandArguments> commands;
};

/// Everything that the program takes, read off its arguments.
ProgramArguments collectArguments();

}  // namespace quorvan::tool
