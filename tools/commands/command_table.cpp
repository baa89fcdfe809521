#include <tools/commands/command_table.h>

namespace quorvan::tool {

std::span<const Command* const> allCommands() {
  static constexpr const Command* kAll[] = {&kInfoCommand,  &kListCommand, &kBarsCommand,
                                            &kCheckCommand, &kDrawCommand, &kDiffCommand,
                                            &kWriteCommand};
  return kAll;
}

}  // namespace quorvan::tool
