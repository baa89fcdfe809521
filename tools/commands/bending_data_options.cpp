#include <tools/commands/bending_data_options.h>

#include <CLI/CLI.hpp>

#include <tools/bvbs/writing/bending_data.h>
#include <tools/commands/command_table.h>
#include <tools/files/work_folder.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

bvbs::BendingDataOptions dataOptions(const BendingDataArguments& arguments) {
  bvbs::BendingDataOptions options;
  options.project = arguments.project;
  options.index = arguments.index;
  options.transliterates = arguments.transliterates;
  if (arguments.cutLength == "axis") {
    options.cutLength = bvbs::CutLength::kAxis;
  }
  if (arguments.obtuseLegs == "axis") {
    options.obtuse = bvbs::ObtuseLegs::kAxis;
  }
  return options;
}

void writeRecords(const bvbs::BendingData& data, std::ostream& out) {
  for (const std::string& record : data.records) {
    out << record << "\r\n";
  }
}

int report(const bvbs::BendingData& data, const BarList& list, std::ostream& err) {
  int status = kSuccess;
  for (const bvbs::BendingRemark& remark : data.remarks) {
    if (!remark.subject.empty()) {
      err << printable(list.drawings[remark.drawing].file->name()) << ": ";
    }
    err << (remark.isWarning ? "warning: " : "note: ");
    if (!remark.subject.empty()) {
      err << printable(remark.subject) << ": ";
    }
    err << printable(remark.text) << '\n';
    status = remark.isWarning ? kFindings : status;
  }
  return status;
}

}  // namespace

void addBendingDataOptions(CLI::App& command, BendingDataArguments& arguments, Run& run) {
  command.add_flag("--bvbs", arguments.isAsked,
                   "As bending data (BVBS), a record for each shape of a mark");
  command.add_option("--project", arguments.project, "Project in the bending data");
  command.add_option("--index", arguments.index, "Index of the drawings in the bending data");
  oneOf(command.add_option("--cut-length", arguments.cutLength,
                           "Length in the bending data: legs (their sum), axis (what is cut)"),
        {"legs", "axis"}, run)
      ->capture_default_str();
  oneOf(command.add_option("--obtuse-legs", arguments.obtuseLegs,
                           "To where the bending data measures a leg at a bend beyond a right "
                           "angle: outermost (point of the bend), axis (its corner)"),
        {"outermost", "axis"}, run)
      ->capture_default_str();
  command.add_flag("--ascii", arguments.transliterates,
                   "Spell texts in ASCII for the bending data");
}

void refuseWithoutBendingData(const BendingDataArguments& arguments) {
  const bool isAny = !arguments.project.empty() || !arguments.index.empty() ||
                     arguments.cutLength != "legs" || arguments.obtuseLegs != "outermost" ||
                     arguments.transliterates;
  if (isAny) {
    throw Failure(
        "--project, --index, --cut-length, --obtuse-legs and --ascii are for bending data: --bvbs, "
        "or -o with the ending .abs");
  }
}

int writeBendingData(const std::vector<const TransferFile*>& drawings, const ListOptions& options,
                     const BendingDataArguments& arguments, const std::string& output,
                     Console& console) {
  const BarList list = makeBarList(drawings, bvbs::listOptionsForBending(options));
  const bvbs::BendingData data = bvbs::makeBendingData(list, dataOptions(arguments));
  if (output.empty()) {
    writeRecords(data, console.out);
  } else {
    writeFile(output, console, [&data](std::ostream& out) { writeRecords(data, out); });
  }
  return report(data, list, console.err);
}

}  // namespace quorvan::tool
