// The documents that are made of the program's arguments. Each gives the same text at each call.
#pragma once

#include <string>

#include <tools/documents/argument_list.h>

namespace quorvan::tool {

/// The manual page, for man.
std::string manualPage(const ProgramArguments& program);

/// What completes command lines: share/bash-completion/completions/quorvan.
std::string bashCompletion(const ProgramArguments& program);

/// The same for zsh: share/zsh/site-functions/_quorvan.
std::string zshCompletion(const ProgramArguments& program);

/// The same for fish: share/fish/vendor_completions.d/quorvan.fish.
std::string fishCompletion(const ProgramArguments& program);

/// The chapter of the guide that tells of the commands, in Markdown.
std::string commandChapter(const ProgramArguments& program);

}  // namespace quorvan::tool
