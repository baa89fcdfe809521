// A sub-command of the program. What `--help`, the manual page, the completions of the shells and
// the guide say of it comes from here and from the options that it adds, and stands nowhere else.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <tools/console/console.h>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace quorvan::tool {

/// The words that a shell offers for an argument. An argument of text without words is the name of
/// a file.
using ArgumentWords = std::map<const CLI::Option*, std::vector<std::string>>;

/// One run of the program: where it writes, and what has become of it.
struct Run {
  Console& console;
  int status = kSuccess;
  ArgumentWords words = {};
};

/// What the exit codes 0, 1 and 2 of a command say. Without findings there is no 1.
struct ExitCodes {
  std::string_view success = "done";
  std::string_view findings = {};
  std::string_view failure = "could not be done";
};

struct Command {
  std::string_view name;
  /// What it gives, in one line.
  std::string_view summary;
  /// The same in sentences, for the manual page and the guide.
  std::string_view description;
  /// A line each: a command line, and behind two blanks at least what it is for.
  std::string_view examples;
  ExitCodes exitCodes;
  /// Adds its options to `command`, and the callback that runs it and leaves its result in `run`.
  void (*addOptions)(CLI::App& command, Run& run);
};

/// Holds the values of an option against the words, and has shells offer them.
CLI::Option* oneOf(CLI::Option* option, const std::vector<std::string>& words, Run& run);

}  // namespace quorvan::tool
