// quorvan check: numbered findings, and a mended copy.

#include <memory>

#include <CLI/CLI.hpp>

#include <tools/bvbs/checking/abs_checker.h>
#include <tools/bvbs/data_file.h>
#include <tools/check/checker.h>
#include <tools/check/report.h>
#include <tools/commands/command_table.h>
#include <tools/commands/detailing_options.h>
#include <tools/console/terminal.h>
#include <tools/detailing/detailing_check.h>
#include <tools/files/drawing_files.h>
#include <tools/files/input_file.h>
#include <tools/files/work_folder.h>
#include <tools/repair/repair.h>

namespace quorvan::tool {

namespace {

struct CheckArguments {
  std::vector<std::string> files;
  std::vector<double> diameters;
  std::string output;
  DetailingArguments detailing;
  bool asJson = false;
  bool asSarif = false;
  bool repairs = false;
};

// What files are held against.
struct Measures {
  StandardSizes sizes;
  std::optional<DetailingLimits> detailing;
};

Measures measuresOf(const CheckArguments& arguments) {
  return {arguments.diameters.empty() ? europeanSizes() : StandardSizes{arguments.diameters},
          detailingLimits(arguments.detailing)};
}

FileFindings findIn(const InputFile& input, const Measures& measures, Console& console) {
  try {
    const TransferFile file(input, console, Tolerance::kForbiddenCharacters);
    FileFindings result{input.name(), checkFile(file, measures.sizes, console)};
    if (measures.detailing) {
      DetailingReport detailing = checkDetailing(file, *measures.detailing);
      result.findings.insert(result.findings.end(),
                             std::make_move_iterator(detailing.findings.begin()),
                             std::make_move_iterator(detailing.findings.end()));
      sortByPlace(result.findings);
      result.notChecked = std::move(detailing.notChecked);
    }
    return result;
  } catch (const NotWellFormed& fault) {
    return {input.name(), {findingOf(fault)}};
  }
}

FileFindings findIn(const std::string& name, const Measures& measures, Console& console) {
  try {
    if (bvbs::isBendingDataName(name)) {
      return {name, bvbs::checkBendingData(bvbs::bendingDataBytes(name))};
    }
    return findIn(InputFile(name), measures, console);
  } catch (const Unreadable& fault) {
    return {name, {findingOf(fault)}};
  }
}

// 0 without warnings, 1 with, 2 with errors.
int statusOf(const std::vector<FileFindings>& results) {
  int status = kSuccess;
  for (const FileFindings& result : results) {
    if (result.count(Severity::kError) != 0) {
      return kFailure;
    }
    if (result.count(Severity::kWarning) != 0) {
      status = kFindings;
    }
  }
  return status;
}

int report(const std::vector<FileFindings>& results, const CheckArguments& arguments,
           std::ostream& out) {
  if (arguments.asSarif) {
    writeFindingsSarif(results, out);
  } else if (arguments.asJson) {
    writeFindingsJson(results, out);
  } else {
    for (const FileFindings& result : results) {
      printFindings(result, out);
    }
  }
  return statusOf(results);
}

int repair(const CheckArguments& arguments, const Measures& measures, Console& console) {
  if (arguments.files.size() != 1 || arguments.output.empty()) {
    throw Failure("--repair takes one file and -o with the name of the mended copy");
  }
  const std::string& name = arguments.files.front();
  if (bvbs::isBendingDataName(name)) {
    throw Failure(name +
                  ": --repair mends transfer files; write bending data again from its drawing");
  }
  refuseSameFile(name, arguments.output);
  const InputFile input(name);
  const FileFindings before = findIn(input, measures, console);
  // The copy has the output for itself where it goes there.
  std::ostream& out = arguments.output == kStandardStream ? console.err : console.out;
  if (!arguments.asJson && !arguments.asSarif) {
    printFindings(before, out);
  }
  const WorkFolder folder(arguments.output, console);
  writeBytes(folder.file(), repairedBytes(input, measures.sizes, folder.file(), console));
  // What is left is looked for in the copy, not assumed.
  FileFindings left = findIn(toUtf8(folder.file()), measures, console);
  left.file = arguments.output == kStandardStream ? "standard output" : arguments.output;
  folder.moveToTarget();
  return report({left}, arguments, out);
}

std::vector<FileFindings> findInAll(const CheckArguments& arguments, Console& console) {
  const Measures measures = measuresOf(arguments);
  std::vector<FileFindings> results;
  for (const std::string& argument : arguments.files) {
    try {
      for (const std::string& name : filesNamedBy(argument)) {
        if (!arguments.output.empty()) {
          refuseSameFile(name, arguments.output);
        }
        results.push_back(findIn(name, measures, console));
      }
    } catch (const Unreadable& fault) {
      results.push_back({argument, {findingOf(fault)}});
    }
  }
  return results;
}

int check(const CheckArguments& arguments, Console& console) {
  if (arguments.repairs) {
    return repair(arguments, measuresOf(arguments), console);
  }
  if (arguments.output.empty()) {
    return report(findInAll(arguments, console), arguments, console.out);
  }
  if (!arguments.asSarif) {
    throw Failure("-o is for the copy that --repair writes, or for --sarif");
  }
  const std::vector<FileFindings> results = findInAll(arguments, console);
  writeFile(arguments.output, console,
            [&results](std::ostream& out) { writeFindingsSarif(results, out); });
  return statusOf(results);
}

void addCheckOptions(CLI::App& command, Run& run) {
  const auto arguments = std::make_shared<CheckArguments>();
  command
      .add_option("FILE", arguments->files,
                  "Transfer files, or folders of them; bending data (.abs)")
      ->required();
  CLI::Option* const json =
      command.add_flag("--json", arguments->asJson, "As JSON (docs/schema/check.schema.json)");
  command
      .add_flag("--sarif", arguments->asSarif,
                "As SARIF 2.1.0, for what collects findings in a build")
      ->excludes(json);
  command.add_flag("--repair", arguments->repairs,
                   "Write a mended copy, check it and report what is left");
  command.add_option("-o,--output", arguments->output,
                     "Name of the mended copy, or of the SARIF file");
  command
      .add_option("--diameters", arguments->diameters,
                  "Standard sizes in the drawing's unit, instead of those of EN 10080 in mm")
      ->delimiter(',')
      ->allow_extra_args(false);
  addDetailingOptions(command, arguments->detailing, run);
  command.callback([arguments, &run] { run.status = check(*arguments, run.console); });
}

}  // namespace

constinit const Command kCheckCommand = {
    .name = "check",
    .summary = "What is wrong with files, and how to mend it",
    .description =
        "Numbered findings with line, column, class, index and item, what was found and "
        "expected, and how to mend it. A mended copy is never written over the file itself. "
        "With --rules the detailing of bars is held against rules as well; those that the file "
        "does not say enough for are listed as not checked. "
        "Bending data (.abs) is held against its format, and its shapes against the roller.",
    .examples =
        "quorvan check beam.xml\n"
        "quorvan check --json *.xml > findings.json\n"
        "quorvan check --diameters 8,10,12,16,20,25 beam.xml\n"
        "quorvan check broken.xml --repair -o mended.xml\n"
        "quorvan check --rules ec2 --cover 30 --aggregate 16 beam.xml  hooks, spacing, cover ...\n"
        "quorvan check --rules bs8666 --stock 14 job/\n"
        "quorvan check --sarif -o findings.sarif *.xml  for the tools of a build\n"
        "quorvan check job.abs",
    .exitCodes = {"no warnings (notes at most)", "warnings",
                  "errors or a file that cannot be read"},
    .addOptions = addCheckOptions,
};

}  // namespace quorvan::tool
