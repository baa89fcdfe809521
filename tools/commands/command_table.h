// The sub-commands, a source file each.
#pragma once

#include <span>

#include <tools/commands/command.h>

namespace quorvan::tool {

extern const Command kInfoCommand;
extern const Command kListCommand;
extern const Command kBarsCommand;
extern const Command kCheckCommand;
extern const Command kDrawCommand;
extern const Command kDiffCommand;
extern const Command kWriteCommand;

/// All of them, in the order in which people meet them.
std::span<const Command* const> allCommands();

}  // namespace quorvan::tool
