// quorvan check: numbered findings, and a mended copy.

#include <algorithm>
#include <array>
#include <memory>

#include <tools/bvbs/checking/abs_checker.h>
#include <tools/bvbs/data_file.h>
#include <tools/check/checker.h>
#include <tools/commands/command_table.h>
#include <tools/console/terminal.h>
#include <tools/files/drawing_files.h>
#include <tools/files/input_file.h>
#include <tools/files/work_folder.h>
#include <tools/repair/repair.h>
#include <tools/text/json_text.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

struct CheckArguments {
  std::vector<std::string> files;
  std::vector<double> diameters;
  std::string output;
  bool asJson = false;
  bool repairs = false;
};

// What was found in one file.
struct FileFindings {
  std::string file;
  std::vector<Finding> findings;

  [[nodiscard]] std::int64_t count(Severity severity) const {
    return std::ranges::count_if(
        findings, [severity](const Finding& one) { return one.kind->severity == severity; });
  }
};

FileFindings findIn(const InputFile& input, const StandardSizes& sizes, Console& console) {
  try {
    const TransferFile file(input, console, Tolerance::kForbiddenCharacters);
    return {input.name(), checkFile(file, sizes, console)};
  } catch (const NotWellFormed& fault) {
    return {input.name(), {findingOf(fault)}};
  }
}

FileFindings findIn(const std::string& name, const StandardSizes& sizes, Console& console) {
  try {
    if (bvbs::isBendingDataName(name)) {
      return {name, bvbs::checkBendingData(bvbs::bendingDataBytes(name))};
    }
    return findIn(InputFile(name), sizes, console);
  } catch (const Unreadable& fault) {
    return {name, {findingOf(fault)}};
  }
}

std::string placeOf(const std::string& file, const Finding& finding) {
  if (finding.position.line == 0) {
    return file;
  }
  return file + ':' + std::to_string(finding.position.line) + ':' +
         std::to_string(finding.position.column);
}

void print(const std::string& file, const Finding& finding, std::ostream& out) {
  out << printable(placeOf(file, finding)) << ": " << severityName(finding.kind->severity) << ' '
      << finding.kind->number << ": " << finding.kind->title;
  std::string subject = finding.className;
  if (!finding.index.empty()) {
    subject += ' ' + finding.index;
  }
  if (!finding.item.empty()) {
    subject += (subject.empty() ? "" : ", ") + finding.item;
  }
  if (!subject.empty()) {
    out << ": " << printable(subject);
  }
  out << "\n    found " << (finding.found.empty() ? "nothing" : printable(finding.found))
      << "; expected " << printable(finding.expected) << "\n    to mend: " << finding.kind->remedy
      << (finding.isRepairable() ? " [--repair]" : "") << '\n';
}

std::string counted(std::int64_t count, std::string_view what) {
  return std::to_string(count) + ' ' + std::string(what) + (count == 1 ? "" : "s");
}

void print(const FileFindings& result, std::ostream& out) {
  for (const Finding& finding : result.findings) {
    print(result.file, finding, out);
  }
  out << printable(result.file) << ": ";
  if (result.findings.empty()) {
    out << "no findings\n";
  } else {
    out << counted(result.count(Severity::kError), "error") << ", "
        << counted(result.count(Severity::kWarning), "warning") << ", "
        << counted(result.count(Severity::kNote), "note") << '\n';
  }
}

Json toJson(const Finding& finding, std::size_t number) {
  const bool isPlaced = finding.position.line != 0;
  return {{"number", number},
          {"code", finding.kind->number},
          {"severity", severityName(finding.kind->severity)},
          {"title", finding.kind->title},
          {"line", isPlaced ? Json(finding.position.line) : Json()},
          {"column", isPlaced ? Json(finding.position.column) : Json()},
          {"class", finding.className},
          {"index", finding.index},
          {"item", finding.item},
          {"found", finding.found},
          {"expected", finding.expected},
          {"remedy", finding.kind->remedy},
          {"repairable", finding.isRepairable()}};
}

Json toJson(const FileFindings& result) {
  Json findings = Json::array();
  for (const Finding& finding : result.findings) {
    findings.push_back(toJson(finding, findings.size() + 1));
  }
  return {{"file", result.file},
          {"errors", result.count(Severity::kError)},
          {"warnings", result.count(Severity::kWarning)},
          {"notes", result.count(Severity::kNote)},
          {"findings", std::move(findings)}};
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

int report(const std::vector<FileFindings>& results, bool asJson, std::ostream& out) {
  if (asJson) {
    Json files = Json::array();
    for (const FileFindings& result : results) {
      files.push_back(toJson(result));
    }
    out << indentedJson({{"files", std::move(files)}});
  } else {
    for (const FileFindings& result : results) {
      print(result, out);
    }
  }
  return statusOf(results);
}

int repair(const CheckArguments& arguments, const StandardSizes& sizes, Console& console) {
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
  const FileFindings before = findIn(input, sizes, console);
  // The copy has the output for itself where it goes there.
  std::ostream& out = arguments.output == kStandardStream ? console.err : console.out;
  if (!arguments.asJson) {
    print(before, out);
  }
  const WorkFolder folder(arguments.output, console);
  writeBytes(folder.file(), repairedBytes(input, sizes, folder.file(), console));
  // What is left is looked for in the copy, not assumed.
  FileFindings left = findIn(toUtf8(folder.file()), sizes, console);
  left.file = arguments.output == kStandardStream ? "standard output" : arguments.output;
  folder.moveToTarget();
  return report({left}, arguments.asJson, out);
}

int check(const CheckArguments& arguments, Console& console) {
  const StandardSizes sizes =
      arguments.diameters.empty() ? europeanSizes() : StandardSizes{arguments.diameters};
  if (arguments.repairs) {
    return repair(arguments, sizes, console);
  }
  if (!arguments.output.empty()) {
    throw Failure("-o is for the copy that --repair writes");
  }
  std::vector<FileFindings> results;
  for (const std::string& argument : arguments.files) {
    try {
      for (const std::string& name : filesNamedBy(argument)) {
        results.push_back(findIn(name, sizes, console));
      }
    } catch (const Unreadable& fault) {
      results.push_back({argument, {findingOf(fault)}});
    }
  }
  return report(results, arguments.asJson, console.out);
}

void addCheckOptions(CLI::App& command, Run& run) {
  const auto arguments = std::make_shared<CheckArguments>();
  command
      .add_option("FILE", arguments->files,
                  "Transfer files, or folders of them; bending data (.abs)")
      ->required();
  command.add_flag("--json", arguments->asJson, "As JSON (docs/schema/check.schema.json)");
  command.add_flag("--repair", arguments->repairs,
                   "Write a mended copy, check it and report what is left");
  command.add_option("-o,--output", arguments->output, "Name of the mended copy");
  command
      .add_option("--diameters", arguments->diameters,
                  "Standard sizes in the drawing's unit, instead of those of EN 10080 in mm")
      ->delimiter(',');
  command.callback([arguments, &run] { run.status = check(*arguments, run.console); });
}

}  // namespace

constinit const Command kCheckCommand = {
    .name = "check",
    .summary = "What is wrong with files, and how to mend it",
    .description =
        "Numbered findings with line, column, class, index and item, what was found and "
        "expected, and how to mend it. A mended copy is never written over the file itself. "
        "Bending data (.abs) is held against its format, and its shapes against the roller.",
    .examples =
        "quorvan check beam.xml\n"
        "quorvan check --json *.xml > findings.json\n"
        "quorvan check --diameters 8,10,12,16,20,25 beam.xml\n"
        "quorvan check broken.xml --repair -o mended.xml\n"
        "quorvan check job.abs",
    .exitCodes = {"no warnings (notes at most)", "warnings",
                  "errors or a file that cannot be read"},
    .addOptions = addCheckOptions,
};

}  // namespace quorvan::tool
