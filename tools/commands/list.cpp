// quorvan list: every element with its items.

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <utility>

#include <CLI/CLI.hpp>

#include <tools/commands/command_table.h>
#include <tools/listing/element_to_json.h>
#include <tools/listing/item_cells.h>
#include <tools/model/class_names.h>
#include <tools/model/control_members.h>
#include <tools/model/item_reader.h>
#include <tools/text/counted_noun.h>
#include <tools/text/csv.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

struct ListArguments {
  std::string file;
  std::string className;
  bool asJson = false;
  bool asCsv = false;
  bool asRawCsv = false;
};

// One listing of a file.
class Listing {
 public:
  Listing(const TransferFile& file, std::string_view className, CsvForm csv, Console& console)
      : m_file(file),
        m_className(className),
        m_csv(csv),
        m_out(console.out),
        m_reader(file, Values::kAsFiled),
        m_progress(console, "listing " + printable(file.name())) {}

  // The drawing JSON, an element a line.
  void writeJson() {
    const Element* const last = lastRecord();
    m_out << "{\"drawing\": "
          << (last == nullptr ? "null" : inlineJson(controlToJson(m_reader.read(*last))))
          << ",\n\"elements\": [";
    const char* separator = "\n";
    for (const Element& element : m_file.elements()) {
      if (&element == last || !isWanted(element)) {
        continue;
      }
      const std::vector<ItemValue> none;
      m_out << separator
            << inlineJson(elementToJson(element.className(),
                                        element.schema == nullptr ? none : m_reader.read(element)));
      separator = ",\n";
    }
    m_out << "\n]}\n";
  }

  // One class: a column an item. All classes: a line an item.
  void writeCsv() {
    if (m_className.empty()) {
      writeItemLines();
    } else {
      writeElementLines();
    }
  }

  void writeTables() {
    for (const std::string_view className : classesInOrder()) {
      m_out << (m_isFirst ? "" : "\n");
      m_isFirst = false;
      const items::ElementSchema* const schema = items::findElement(className);
      if (schema == nullptr) {
        writeUnknown(className);
      } else {
        writeTable(*schema);
      }
    }
  }

 private:
  [[nodiscard]] bool isWanted(const Element& element) {
    m_progress.report(element.place, m_file.elements().size());
    return m_className.empty() || element.className() == m_className;
  }

  // The control record that closes the file.
  [[nodiscard]] const Element* lastRecord() const {
    const auto& elements = m_file.elements();
    return !elements.empty() && elements.back().is(items::ElementClass::kDrawingControl)
               ? &elements.back()
               : nullptr;
  }

  [[nodiscard]] std::vector<std::string_view> classesInOrder() {
    std::vector<std::string_view> classes;
    for (const Element& element : m_file.elements()) {
      if (element.ordinal == 1 && isWanted(element)) {
        classes.push_back(element.className());
      }
    }
    return classes;
  }

  void writeItemLines() {
    m_out << csvLine({"class", "index", "item", "value"});
    std::unordered_map<const items::ItemSchema*, std::vector<std::string>> titles;
    std::vector<std::string> fields(4);
    for (const Element& element : m_file.elements()) {
      if (element.schema == nullptr) {
        continue;
      }
      fields[0] = element.className();
      fields[1] = m_file.indexOf(element);
      for (const ItemValue& item : m_reader.read(element)) {
        const auto [known, isNew] = titles.try_emplace(item.schema);
        if (isNew) {
          known->second = itemTitles(*item.schema);
        }
        std::vector<std::string> cells = itemCells(item);
        for (std::size_t i = 0; i < cells.size(); ++i) {
          fields[2] = known->second[i];
          fields[3] = std::move(cells[i]);
          m_out << csvLine(fields, m_csv);
        }
      }
    }
  }

  void writeElementLines() {
    const items::ElementSchema* const schema = items::findElement(m_className);
    if (schema == nullptr) {
      return;
    }
    std::vector<std::string> titles{"index"};
    for (const items::ItemSchema& item : schema->items) {
      std::ranges::copy(itemTitles(item), std::back_inserter(titles));
    }
    m_out << csvLine(titles);
    for (const Element& element : m_file.elements()) {
      if (!isWanted(element)) {
        continue;
      }
      std::vector<std::string> cells{std::string(m_file.indexOf(element))};
      for (const ItemValue& item : m_reader.read(element)) {
        std::ranges::copy(itemCells(item), std::back_inserter(cells));
      }
      m_out << csvLine(cells, m_csv);
    }
  }

  // Lists stand last, because they may be long.
  void writeTable(const items::ElementSchema& schema) {
    m_out << schema.className << '\n';
    Table table;
    table.addColumn("index", Table::Align::kRight);
    for (const bool lists : {false, true}) {
      for (const items::ItemSchema& item : schema.items) {
        if (isList(item.kind) == lists) {
          table.addColumn(std::string(displayName(item)), alignOf(item.kind));
        }
      }
    }
    for (const Element& element : m_file.elements()) {
      if (element.schema == &schema) {
        table.addRow(rowOf(element));
      }
    }
    table.print(m_out, 2);
  }

  std::vector<std::string> rowOf(const Element& element) {
    std::vector<std::string> cells{std::string(m_file.indexOf(element))};
    const std::vector<ItemValue>& items = m_reader.read(element);
    for (const bool lists : {false, true}) {
      for (const ItemValue& item : items) {
        if (isList(item.schema->kind) == lists) {
          cells.push_back(item.isMissing() ? "-" : itemCell(item));
        }
      }
    }
    return cells;
  }

  static Table::Align alignOf(items::Kind kind) {
    const bool isNumber =
        kind == items::Kind::kDouble || kind == items::Kind::kLong || kind == items::Kind::kColor;
    return isNumber ? Table::Align::kRight : Table::Align::kLeft;
  }

  void writeUnknown(std::string_view className) {
    std::size_t count = 0;
    for (const Element& element : m_file.elements()) {
      count += element.className() == className ? 1U : 0U;
    }
    m_out << printable(className) << "\n  not an element class of this format, "
          << counted(count, "element") << '\n';
  }

  const TransferFile& m_file;
  std::string_view m_className;
  CsvForm m_csv;
  std::ostream& m_out;
  ItemReader m_reader;
  Progress m_progress;
  bool m_isFirst = true;
};

void list(const ListArguments& arguments, Console& console) {
  const std::string className =
      arguments.className.empty() ? std::string() : fullClassName(arguments.className);
  const TransferFile file(arguments.file, console);
  const CsvForm csv{.fields = arguments.asRawCsv ? CsvFields::kRaw : CsvFields::kGuarded,
                    .isShown = console.outIsTerminal};
  Listing listing(file, className, csv, console);
  if (arguments.asJson) {
    listing.writeJson();
  } else if (arguments.asCsv || arguments.asRawCsv) {
    listing.writeCsv();
  } else {
    listing.writeTables();
  }
}

void addListOptions(CLI::App& command, Run& run) {
  const auto arguments = std::make_shared<ListArguments>();
  command.add_option("FILE", arguments->file, "Transfer file")->required();
  CLI::Option* const className = command.add_option(
      "CLASS", arguments->className, "Only elements of this class; \"CKtZanto\" may be left out");
  run.words[className] = shortClassNames();
  CLI::Option* const json = command.add_flag("--json", arguments->asJson,
                                             "As drawing JSON (docs/schema/drawing.schema.json)");
  command
      .add_flag("--csv", arguments->asCsv,
                "As CSV: a line an element for one CLASS, else a line an item")
      ->excludes(json);
  command
      .add_flag("--csv-raw", arguments->asRawCsv,
                "As CSV for programs: no apostrophe before what a spreadsheet takes for a formula")
      ->excludes(json);
  command.callback([arguments, &run] { list(*arguments, run.console); });
}

}  // namespace

constinit const Command kListCommand = {
    .name = "list",
    .summary = "Every element with its items",
    .description =
        "Every element with its items, as tables, CSV or drawing JSON. Only those of CLASS if "
        "it is given.",
    .examples =
        "quorvan list beam.xml                       every element, a table for each class\n"
        "quorvan list beam.xml StraightBar           one class\n"
        "quorvan list beam.xml LBar --csv > l.csv    a column an item\n"
        "quorvan list beam.xml --json > beam.json    what `quorvan write` takes",
    .exitCodes = {},
    .addOptions = addListOptions,
};

}  // namespace quorvan::tool
