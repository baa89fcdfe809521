// quorvan bars: the bar list.

#include <cmath>
#include <memory>

#include <tools/commands/command_table.h>
#include <tools/model/control_members.h>
#include <tools/model/item_reader.h>
#include <tools/schedule/bar_list.h>
#include <tools/schedule/bar_sources.h>
#include <tools/text/csv.h>
#include <tools/text/json_text.h>
#include <tools/text/number_text.h>
#include <tools/text/paragraph.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

constexpr int kMassDecimals = 2;
constexpr int kMetreDecimals = 2;

struct BarsArguments {
  std::string file;
  std::string unit = "mm";
  bool asJson = false;
  bool asCsv = false;
  bool asRawCsv = false;
};

const LengthUnit& unitNamed(std::string_view name) {
  for (const LengthUnit& unit : kLengthUnits) {
    if (unit.name == name) {
      return unit;
    }
  }
  throw Failure('"' + std::string(name) + "\" is not a unit; there are mm, cm, m");
}

std::string lengthText(const BarRow& row, const LengthUnit& unit) {
  return row.hasLength ? fixed(row.length, unit.decimals) : "-";
}

std::string metres(double length, const LengthUnit& unit) {
  return fixed(length * unit.inMetres, kMetreDecimals);
}

std::string drawingName(const TransferFile& file) {
  const Element* const record = controlRecord(file);
  return record == nullptr ? std::string()
                           : findItem(ItemReader(file).read(*record), "DrawingName")->text;
}

void printHead(const TransferFile& file, const LengthUnit& unit, std::ostream& out) {
  const std::string name = drawingName(file);
  out << "Bar list of " << printable(file.name())
      << (name.empty() ? "" : ", drawing " + printable(name)) << "\n\n";
  printParagraph(out, kLengthConvention);
  printParagraph(out, kNumberConvention);
  printParagraph(out, "Units: diameter and length in " + std::string(unit.name) +
                          ", total length in m, mass in kg at " + rounded(kSteelDensity, 0) +
                          " kg/m3.");
  out << '\n';
}

void printRows(const TransferFile& file, const BarList& list, const LengthUnit& unit,
               std::ostream& out) {
  Table table;
  table.addColumn("mark", Table::Align::kRight);
  table.addColumn("shape");
  table.addColumn("grade");
  table.addColumn("adherence");
  for (const char* const title : {"diameter", "number", "length", "total", "mass"}) {
    table.addColumn(title, Table::Align::kRight);
  }
  table.addColumn("elements");
  for (const BarRow& row : list.rows) {
    table.addRow(
        {std::to_string(row.mark), std::string(shapeName(row.shape)), row.grade, row.adherence,
         rounded(row.diameter, 2), std::to_string(row.number()), lengthText(row, unit),
         row.hasLength ? metres(row.totalLength(), unit) : "-",
         row.hasLength ? fixed(massOf(row.diameter, row.totalLength(), unit), kMassDecimals) : "-",
         sourceText(file, row) +
             (row.hidden == 0 ? "" : " (" + std::to_string(row.hidden) + " hidden)")});
  }
  table.print(out);
}

void printSums(const BarList& list, const LengthUnit& unit, std::ostream& out) {
  Table table;
  table.addColumn("diameter", Table::Align::kRight);
  table.addColumn("grade");
  for (const char* const title : {"number", "total", "mass"}) {
    table.addColumn(title, Table::Align::kRight);
  }
  for (const BarSum& sum : list.sums) {
    table.addRow({rounded(sum.diameter, 2), sum.grade, std::to_string(sum.number),
                  metres(sum.length, unit), fixed(sum.mass, kMassDecimals)});
  }
  out << '\n';
  table.print(out);
  out << "\nTotal mass: " << fixed(list.mass, kMassDecimals) << " kg\n";
}

void printText(const TransferFile& file, const BarList& list, const LengthUnit& unit,
               std::ostream& out) {
  printHead(file, unit, out);
  if (list.rows.empty()) {
    out << "No bars.\n";
  } else {
    printRows(file, list, unit, out);
    printSums(list, unit, out);
  }
  if (list.meshes != 0) {
    out << "Not in this list: " << list.meshes
        << (list.meshes == 1 ? " mesh sheet.\n" : " mesh sheets.\n");
  }
}

void printCsv(const TransferFile& file, const BarList& list, const LengthUnit& unit,
              CsvFields fields, std::ostream& out) {
  const std::string name(unit.name);
  out << csvLine({"mark", "shape", "grade", "adherence", "diameter [" + name + ']', "number",
                  "length [" + name + ']', "total length [m]", "mass [kg]", "elements"});
  for (const BarRow& row : list.rows) {
    out << csvLine(
        {std::to_string(row.mark), std::string(shapeName(row.shape)), row.grade, row.adherence,
         rounded(row.diameter, 2), std::to_string(row.number()),
         row.hasLength ? fixed(row.length, unit.decimals) : "",
         row.hasLength ? metres(row.totalLength(), unit) : "",
         row.hasLength ? fixed(massOf(row.diameter, row.totalLength(), unit), kMassDecimals) : "",
         sourceText(file, row)},
        fields);
  }
}

// Rounded to what the list shows.
Json number(double value, int decimals) {
  if (!std::isfinite(value)) {
    return value;
  }
  return Json::parse(fixed(value, decimals));
}

Json toJson(const TransferFile& file, const std::vector<const Element*>& elements) {
  Json list = Json::array();
  for (const Element* const element : elements) {
    list.push_back({{"class", element->className()}, {"index", file.indexOf(*element)}});
  }
  return list;
}

Json toJson(const TransferFile& file, const BarRow& row, const LengthUnit& unit) {
  Json result = {{"mark", row.mark},         {"shape", shapeName(row.shape)},
                 {"grade", row.grade},       {"adherence", row.adherence},
                 {"diameter", row.diameter}, {"number", row.number()}};
  result["length"] = nullptr;
  result["totalLength"] = nullptr;
  result["mass"] = nullptr;
  if (row.hasLength) {
    result["length"] = number(row.length, unit.decimals);
    result["totalLength"] = number(row.totalLength() * unit.inMetres, kMetreDecimals);
    result["mass"] = number(massOf(row.diameter, row.totalLength(), unit), kMassDecimals);
  }
  result["hidden"] = row.hidden;
  result["elements"] = Json::array();
  for (const SourceElements& source : row.sources) {
    for (const Json& one : toJson(file, source.elements)) {
      result["elements"].push_back(one);
    }
  }
  result["endOn"] = toJson(file, row.endOn);
  return result;
}

void printJson(const TransferFile& file, const BarList& list, const LengthUnit& unit,
               std::ostream& out) {
  Json result = {{"file", file.name()}, {"drawing", drawingName(file)}};
  result["lengthConvention"] = kLengthConvention;
  result["numberConvention"] = kNumberConvention;
  result["unit"] = unit.name;
  result["density"] = kSteelDensity;
  result["bars"] = Json::array();
  for (const BarRow& row : list.rows) {
    result["bars"].push_back(toJson(file, row, unit));
  }
  result["sums"] = Json::array();
  for (const BarSum& sum : list.sums) {
    result["sums"].push_back({{"diameter", sum.diameter},
                              {"grade", sum.grade},
                              {"number", sum.number},
                              {"totalLength", number(sum.length * unit.inMetres, kMetreDecimals)},
                              {"mass", number(sum.mass, kMassDecimals)}});
  }
  result["mass"] = number(list.mass, kMassDecimals);
  result["meshes"] = list.meshes;
  out << indentedJson(result);
}

void listBars(const BarsArguments& arguments, Console& console) {
  const LengthUnit& unit = unitNamed(arguments.unit);
  const TransferFile file(arguments.file, console);
  const BarList list = makeBarList(file, unit);
  if (arguments.asJson) {
    printJson(file, list, unit, console.out);
  } else if (arguments.asCsv || arguments.asRawCsv) {
    printCsv(file, list, unit, arguments.asRawCsv ? CsvFields::kRaw : CsvFields::kGuarded,
             console.out);
  } else {
    printText(file, list, unit, console.out);
  }
}

void addBarsOptions(CLI::App& command, Run& run) {
  const auto arguments = std::make_shared<BarsArguments>();
  command.add_option("FILE", arguments->file, "Transfer file")->required();
  CLI::Option* const unit =
      command.add_option("--unit", arguments->unit, "Unit of the drawing's lengths: mm, cm or m")
          ->capture_default_str();
  run.words[unit] = {"mm", "cm", "m"};
  CLI::Option* const json =
      command.add_flag("--json", arguments->asJson, "As JSON (docs/schema/bars.schema.json)");
  command.add_flag("--csv", arguments->asCsv, "As CSV, a line a row")->excludes(json);
  command
      .add_flag("--csv-raw", arguments->asRawCsv,
                "As CSV for programs: no apostrophe before what a spreadsheet takes for a formula")
      ->excludes(json);
  command.callback([arguments, &run] { listBars(*arguments, run.console); });
}

}  // namespace

constinit const Command kBarsCommand = {
    .name = "bars",
    .summary = "The bar list: marks, numbers, lengths, masses",
    .description =
        "The bar list: mark, shape, grade, adherence, diameter, number, length, total length, "
        "mass, and the elements that each row came from; sums by diameter and grade. The "
        "convention for lengths and numbers stands on top.",
    .examples =
        "quorvan bars beam.xml\n"
        "quorvan bars beam.xml --csv > bars.csv\n"
        "quorvan bars plan-in-metres.xml --unit m",
    .exitCodes = {},
    .addOptions = addBarsOptions,
};

}  // namespace quorvan::tool
