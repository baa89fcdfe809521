// The arguments of the program, made of the table of its commands.
#pragma once

#include <memory>

#include <tools/commands/command.h>

namespace quorvan::tool {

/// Every command with its options. Parsing runs the command that was asked for, which leaves its
/// result in `run`; `run` must outlive the arguments.
std::unique_ptr<CLI::App> programArguments(Run& run);

}  // namespace quorvan::tool
