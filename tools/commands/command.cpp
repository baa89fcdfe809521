#include <tools/commands/command.h>

#include <CLI/CLI.hpp>

namespace quorvan::tool {

CLI::Option* oneOf(CLI::Option* option, const std::vector<std::string>& words, Run& run) {
  run.words[option] = words;
  return option->check(CLI::IsMember(words));
}

}  // namespace quorvan::tool
