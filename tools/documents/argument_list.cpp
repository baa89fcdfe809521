#include <tools/documents/argument_list.h>

#include <algorithm>
#include <sstream>

#include <CLI/CLI.hpp>

#include <tools/commands/arguments.h>
#include <tools/commands/command_table.h>

namespace quorvan::tool {

namespace {

std::string nameOf(const CLI::Option& option) {
  return option.get_lnames().empty() ? option.get_name(true) : "--" + option.get_lnames().front();
}

std::string upper(std::string text) {
  std::ranges::transform(text, text.begin(), [](char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - ('a' - 'A')) : letter;
  });
  return text;
}

Argument::Value valueOf(const CLI::Option& option, bool hasWords) {
  if (option.get_items_expected_max() == 0) {
    return Argument::Value::kNone;
  }
  if (hasWords) {
    return Argument::Value::kWord;
  }
  return option.get_type_name().starts_with("TEXT") ? Argument::Value::kFile
                                                    : Argument::Value::kNumber;
}

Argument argumentOf(const CLI::Option& option, const ArgumentWords& words) {
  Argument result;
  result.name = nameOf(option);
  if (!option.get_snames().empty()) {
    result.shortName = "-" + option.get_snames().front();
  }
  result.description = option.get_description();
  if (const auto found = words.find(&option); found != words.end()) {
    result.words = found->second;
  }
  result.value = valueOf(option, !result.words.empty());
  if (result.value != Argument::Value::kNone) {
    result.valueName = upper(result.name.substr(result.isOption() ? 2 : 0));
  }
  result.standard = option.get_default_str();
  for (const CLI::Option* const other : option.get_excludes()) {
    result.excludes.push_back(nameOf(*other));
  }
  result.isRequired = option.get_required();
  result.takesMany = option.get_items_expected_max() > 1;
  return result;
}

std::vector<Argument> argumentsOf(const CLI::App& app, const ArgumentWords& words,
                                  bool areOptions) {
  std::vector<Argument> result;
  for (const CLI::Option* const option : app.get_options()) {
    if (option->nonpositional() == areOptions) {
      result.push_back(argumentOf(*option, words));
    }
  }
  return result;
}

}  // namespace

std::string Argument::usage() const {
  std::string result = shortName.empty() ? name : shortName + ", " + name;
  if (!isOption()) {
    return result + (takesMany ? "..." : "");
  }
  return valueName.empty() ? result : result + ' ' + valueName;
}

std::string CommandArguments::synopsis() const {
  std::string result = "quorvan " + std::string(command->name) + " [OPTION]...";
  for (const Argument& option : options) {
    if (option.isRequired) {
      result += ' ' + (option.shortName.empty() ? option.name : option.shortName) + ' ' +
                option.valueName;
    }
  }
  for (const Argument& argument : positionals) {
    result += ' ' + (argument.isRequired ? argument.usage() : '[' + argument.usage() + ']');
  }
  return result;
}

ProgramArguments collectArguments() {
  std::ostringstream unused;
  Console console{unused, unused};
  Run run{console};
  const std::unique_ptr<CLI::App> program = programArguments(run);
  ProgramArguments result;
  result.version = program->version();
  result.options = argumentsOf(*program, run.words, true);
  for (const Command* const command : allCommands()) {
    const CLI::App& app = *program->get_subcommand(std::string(command->name));
    result.commands.push_back(
        {command, argumentsOf(app, run.words, true), argumentsOf(app, run.words, false)});
  }
  return result;
}

}  // namespace quorvan::tool
