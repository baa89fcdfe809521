// The sub-commands, a source file each. Each function adds one to the program's arguments; when it
// was asked for, it runs and leaves the program's result in `status`.
#pragma once

#include <CLI/CLI.hpp>

#include <tools/console/console.h>

namespace quorvan::tool {

struct Run {
  Console& console;
  int status = kSuccess;
};

void addBars(CLI::App& program, Run& run);
void addCheck(CLI::App& program, Run& run);
void addDiff(CLI::App& program, Run& run);
void addDraw(CLI::App& program, Run& run);
void addInfo(CLI::App& program, Run& run);
void addList(CLI::App& program, Run& run);
void addWrite(CLI::App& program, Run& run);

}  // namespace quorvan::tool
