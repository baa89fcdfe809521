// What `quorvan bars` writes bending data by.
#pragma once

#include <string>
#include <vector>

#include <tools/commands/command.h>
#include <tools/files/transfer_file.h>
#include <tools/schedule/list_options.h>

namespace quorvan::tool {

struct BendingDataArguments {
  bool isAsked = false;
  std::string project;
  std::string index;
  std::string cutLength = "legs";
  std::string obtuseLegs = "outermost";
  bool transliterates = false;
};

void addBendingDataOptions(CLI::App& command, BendingDataArguments& arguments, Run& run);

/// Raises Failure for options of bending data where none is asked for.
void refuseWithoutBendingData(const BendingDataArguments& arguments);

/// Writes the bending data of the drawings to the file, or to the console's output for an empty
/// name, and what is left out of it to its messages. The result is kFindings where a bar has no
/// record or no shape.
int writeBendingData(const std::vector<const TransferFile*>& drawings, const ListOptions& options,
                     const BendingDataArguments& arguments, const std::string& output,
                     Console& console);

}  // namespace quorvan::tool
