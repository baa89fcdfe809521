// quorvan bars: the bar list.

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>

#include <CLI/CLI.hpp>

#include <tools/commands/bending_data_options.h>
#include <tools/commands/command_table.h>
#include <tools/commands/measures.h>
#include <tools/console/terminal.h>
#include <tools/draw/bar_list/list_page.h>
#include <tools/draw/bar_list/list_sheets.h>
#include <tools/draw/bar_list/shape_sketch.h>
#include <tools/draw/writers/svg_writer.h>
#include <tools/files/drawing_files.h>
#include <tools/files/work_folder.h>
#include <tools/schedule/bar_list.h>
#include <tools/schedule/list_writers.h>
#ifdef QUORVAN_HAS_CAIRO
#include <tools/draw/writers/pdf_writer.h>
#endif

namespace quorvan::tool {

namespace {

struct BarsArguments {
  std::vector<std::string> files;
  std::string unit = "mm";
  std::string angles = "auto";
  std::string views = "all";
  std::string schedule = "axis";
  std::string hooks = "corner";
  std::string frameRadius = "axis";
  std::string mandrel;
  std::string deduction;
  std::string rounding;
  std::optional<double> roundLengths;
  std::optional<double> roundLegs;
  std::string language = "en";
  std::string output;
  std::string sketches;
  BendingDataArguments bendingData;
  bool byLength = false;
  bool explain = false;
  bool asJson = false;
  bool asCsv = false;
  bool asRawCsv = false;
  bool withSemicolons = false;
};

BendingRules bendingRules(const BarsArguments& arguments) {
  BendingRules rules;
  rules.hooks = arguments.hooks == "straight" ? HookMeaning::kStraight : HookMeaning::kCorner;
  rules.ring = arguments.frameRadius == "inner" ? RingRadius::kInner : RingRadius::kAxis;
  rules.mandrel = mandrelOf(arguments.mandrel);
  return rules;
}

CuttingRules cuttingRules(const BarsArguments& arguments) {
  const Schedule schedule = arguments.schedule == "iso3766"  ? Schedule::kIso3766
                            : arguments.schedule == "bs8666" ? Schedule::kBs8666
                                                             : Schedule::kAxis;
  CuttingRules rules = usualRules(schedule);
  rules.lengthStep = arguments.roundLengths.value_or(rules.lengthStep);
  rules.legStep = arguments.roundLegs.value_or(rules.legStep);
  if (!arguments.rounding.empty()) {
    rules.rounding = arguments.rounding == "up" ? Rounding::kUp : Rounding::kNearest;
  }
  if (!arguments.deduction.empty()) {
    if (schedule == Schedule::kAxis) {
      throw Failure("--deduct needs outside dimensions: --schedule iso3766 or bs8666");
    }
    const auto measure =
        arguments.deduction == "none" ? std::optional(Measure()) : measureOf(arguments.deduction);
    if (!measure) {
      throw Failure('"' + arguments.deduction +
                    "\" is no deduction; give that of a bend as 2d or, in mm, as 25, or none");
    }
    rules.deduction = Deduction{measure->diameters, measure->millimetres};
  }
  return rules;
}

ListOptions listOptions(const BarsArguments& arguments) {
  ListOptions options;
  options.unit = &unitNamed(arguments.unit);
  options.twins = arguments.views == "once" ? TwinSeries::kOnce : TwinSeries::kAll;
  options.byLength = arguments.byLength;
  options.bending = bendingRules(arguments);
  options.cutting = cuttingRules(arguments);
  options.angles = anglesNamed(arguments.angles);
  return options;
}

ListWriting listWriting(const BarsArguments& arguments) {
  ListWriting writing;
  for (const ListWording* const words : kListWordings) {
    if (words->language == arguments.language) {
      writing.words = words;
    }
  }
  writing.explain = arguments.explain;
  if (arguments.withSemicolons) {
    writing.csv.separator = ';';
    writing.csv.decimalMark = ',';
  }
  if (arguments.asRawCsv) {
    writing.csv.fields = CsvFields::kRaw;
  }
  return writing;
}

// What a build without the library of a form says.
[[noreturn]] [[maybe_unused]] void refuseForm(const std::string& output, const char* library) {
  throw Failure(output + ": this build does not write it; it has no " + library);
}

void writeBinary([[maybe_unused]] const BarList& list, [[maybe_unused]] const ListWriting& writing,
                 const std::string& output, std::string_view form, Console& console) {
  const WorkFolder folder(output, console);
  if (form == ".pdf") {
#ifdef QUORVAN_HAS_CAIRO
    writePdf(listSheets(list, writing), folder.file());
#else
    refuseForm(output, "cairo");
#endif
  } else {
#ifdef QUORVAN_HAS_XLSXWRITER
    writeListWorkbook(list, writing, folder.file());
#else
    refuseForm(output, "libxlsxwriter");
#endif
  }
  folder.moveToTarget();
}

void writeOutput(const BarList& list, const ListWriting& writing, const std::string& output,
                 Console& console) {
  const std::string form = toUtf8(toPath(output).extension());
  if (form == ".pdf" || form == ".xlsx") {
    return writeBinary(list, writing, output, form, console);
  }
  const auto write = form == ".html"   ? writeListPage
                     : form == ".csv"  ? writeListCsv
                     : form == ".json" ? writeListJson
                                       : nullptr;
  if (write == nullptr) {
    throw Failure(output + ": the name must end in .html, .pdf, .xlsx, .csv, .json or .abs");
  }
  writeFile(output, console, [&](std::ostream& out) { write(list, writing, out); });
}

// "mark-5.svg"; further rows of a mark are "mark-5-2.svg" and so on.
void writeSketches(const BarList& list, const ListWriting& writing, const std::string& folder,
                   Console& console) {
  std::error_code error;
  std::filesystem::create_directories(toPath(folder), error);
  if (error) {
    throw Failure(folder + ": cannot be made: " + error.message());
  }
  std::map<std::int64_t, int> counts;
  for (const BarRow& row : list.rows) {
    const int count = ++counts[row.mark];
    const std::string name = "mark-" + std::to_string(row.mark) +
                             (count == 1 ? "" : '-' + std::to_string(count)) + ".svg";
    writeFile(toUtf8(toPath(folder) / name), console, [&](std::ostream& out) {
      writeSvg(sketchOf(row, list, writing.words->decimalMark), {}, out);
    });
  }
}

bool isBendingData(const BarsArguments& arguments) {
  return arguments.bendingData.isAsked || toUtf8(toPath(arguments.output).extension()) == ".abs";
}

// Bending data has the shapes as they are bent, each length in a record of its own.
void refuseScheduling(const BarsArguments& arguments) {
  const bool isScheduled = arguments.schedule != "axis" || !arguments.deduction.empty() ||
                           !arguments.rounding.empty() || arguments.roundLengths ||
                           arguments.roundLegs || arguments.explain || !arguments.sketches.empty();
  if (isScheduled) {
    throw Failure(
        "--schedule, --deduct, --round-lengths, --round-legs, --rounding, --explain and --sketches "
        "are for lists, not for bending data");
  }
}

int listBars(const BarsArguments& arguments, Console& console) {
  ListOptions options = listOptions(arguments);
  ListWriting writing = listWriting(arguments);
  writing.csv.isShown = arguments.output.empty() && console.outIsTerminal;
  std::vector<std::unique_ptr<const TransferFile>> files;
  std::vector<const TransferFile*> drawings;
  for (const std::string& name : drawingFiles(arguments.files, console)) {
    if (!arguments.output.empty()) {
      refuseSameFile(name, arguments.output);
    }
    drawings.push_back(files.emplace_back(std::make_unique<TransferFile>(name, console)).get());
  }
  if (isBendingData(arguments)) {
    refuseScheduling(arguments);
    return writeBendingData(drawings, options, arguments.bendingData, arguments.output, console);
  }
  refuseWithoutBendingData(arguments.bendingData);
  // Text and CSV show no shapes.
  options.hasShapes = !arguments.output.empty() || !arguments.sketches.empty() || arguments.asJson;
  const BarList list = makeBarList(drawings, options);
  if (!arguments.sketches.empty()) {
    writeSketches(list, writing, arguments.sketches, console);
  }
  if (!arguments.output.empty()) {
    writeOutput(list, writing, arguments.output, console);
  } else if (arguments.asJson) {
    writeListJson(list, writing, console.out);
  } else if (arguments.asCsv || arguments.asRawCsv) {
    writeListCsv(list, writing, console.out);
  } else {
    printList(list, writing, console.out);
  }
  return kSuccess;
}

void addCountingOptions(CLI::App& command, BarsArguments& arguments, Run& run) {
  addUnitOptions(command, arguments.unit, arguments.angles, run);
  oneOf(command.add_option("--views", arguments.views,
                           "Repartitions that look like the same bars in several views: all of "
                           "them count, or once"),
        {"all", "once"}, run)
      ->capture_default_str();
  command.add_flag("--by-length", arguments.byLength,
                   "A row for each length of a series, not one for all of them");
  command.add_flag("--explain", arguments.explain, "How the number of each row came about");
}

void addBendingOptions(CLI::App& command, BarsArguments& arguments, Run& run) {
  oneOf(command.add_option("--schedule", arguments.schedule,
                           "What lengths are: axis (as drawn), iso3766 (cut along the centre "
                           "line), bs8666 (by shape code)"),
        {"axis", "iso3766", "bs8666"}, run)
      ->capture_default_str();
  oneOf(command.add_option("--hooks", arguments.hooks,
                           "From where a hook is measured: corner, or its straight part alone"),
        {"corner", "straight"}, run)
      ->capture_default_str();
  oneOf(command.add_option("--frame-radius", arguments.frameRadius,
                           "What the radius of a circular frame is: axis, inner"),
        {"axis", "inner"}, run)
      ->capture_default_str();
  command.add_option("--mandrel", arguments.mandrel,
                     "Diameter of the bending roller: 5d, or 60 for mm; 4d up to 16 mm and 7d "
                     "above unless given");
  command.add_option("--deduct", arguments.deduction,
                     "What a bend takes off the outside dimensions: 2d, 25 for mm, or none; the "
                     "schedule's own way unless given");
  command
      .add_option("--round-lengths", arguments.roundLengths,
                  "Round lengths to so many mm, 0 for none; as the schedule does unless given")
      ->check(CLI::Range(0.0, 1000.0));
  command.add_option("--round-legs", arguments.roundLegs, "Round dimensions to so many mm")
      ->check(CLI::Range(0.0, 1000.0));
  oneOf(command.add_option("--rounding", arguments.rounding, "How lengths are rounded"),
        {"nearest", "up"}, run);
}

void addBarsOptions(CLI::App& command, Run& run) {
  const auto arguments = std::make_shared<BarsArguments>();
  command.add_option("FILE", arguments->files, "Transfer files, or folders of them")->required();
  addCountingOptions(command, *arguments, run);
  addBendingOptions(command, *arguments, run);
  std::vector<std::string> languages;
  for (const ListWording* const words : kListWordings) {
    languages.emplace_back(words->language);
  }
  oneOf(command.add_option("--lang", arguments->language, "Language of the list"), languages, run)
      ->capture_default_str();
  CLI::Option* const output = command.add_option(
      "-o,--output", arguments->output,
      "File to write; its ending says the form: .html .pdf .xlsx .csv .json .abs");
  command.add_option("--sketches", arguments->sketches,
                     "Folder in which to put the shape of each row, as SVG");
  CLI::Option* const json =
      command.add_flag("--json", arguments->asJson, "As JSON (docs/schema/bars.schema.json)")
          ->excludes(output);
  CLI::Option* const csv =
      command.add_flag("--csv", arguments->asCsv, "As CSV, a line for each row")
          ->excludes(json)
          ->excludes(output);
  command
      .add_flag("--csv-raw", arguments->asRawCsv,
                "As CSV for programs: no apostrophe before what a spreadsheet takes for a formula")
      ->excludes(json);
  command.add_flag("--semicolon", arguments->withSemicolons,
                   "CSV with semicolons and decimal commas, for spreadsheets that expect them");
  addBendingDataOptions(command, arguments->bendingData, run);
  command.get_option("--bvbs")->excludes(json)->excludes(csv);
  command.callback([arguments, &run] { run.status = listBars(*arguments, run.console); });
}

}  // namespace

constinit const Command kBarsCommand = {
    .name = "bars",
    .summary = "The bar list: marks, numbers, lengths, masses",
    .description =
        "The bar list of one drawing or of all drawings of a job: mark, shape, grade, adherence, "
        "diameter, number, length, total length, mass, and the elements that each row came from; "
        "sums by diameter and grade, and by drawing; meshes; and what is not in the sums, with the "
        "reason. The conventions for lengths and numbers stand on top. As a schedule it has the "
        "dimensions to bend from, and the lengths to cut; as bending data (BVBS) it has a record "
        "for each shape of a mark, for bending machines.",
    .examples =
        "quorvan bars beam.xml\n"
        "quorvan bars beam.xml --csv > bars.csv\n"
        "quorvan bars job/ --explain  the drawings of a folder\n"
        "quorvan bars beam.xml --schedule bs8666 -o beam.pdf  shape codes, to print\n"
        "quorvan bars job/ -o job.xlsx\n"
        "quorvan bars beam.xml --schedule iso3766 --lang fr\n"
        "quorvan bars plan-in-metres.xml --unit m\n"
        "quorvan bars job/ -o job.abs --project \"Hall 3\" --ascii  for bending machines",
    .exitCodes = {"done", "bars without a record or shape in the bending data",
                  "could not be done"},
    .addOptions = addBarsOptions,
};

}  // namespace quorvan::tool
