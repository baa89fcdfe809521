// quorvan info: what a transfer file holds, in figures.

#include <algorithm>
#include <memory>
#include <span>

#include <CLI/CLI.hpp>

#include <tools/commands/command_table.h>
#include <tools/files/drawing_files.h>
#include <tools/listing/file_summary.h>
#include <tools/text/json_text.h>
#include <tools/text/number_text.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

constexpr std::size_t kIndent = 2;
constexpr std::size_t kMostPerLine = 20;
constexpr std::size_t kMostSeries = 20;

struct InfoArguments {
  std::vector<std::string> files;
  bool asJson = false;
  bool showsAll = false;
};

Json toJson(const Coordinates& point) {
  return Json::array({point.x, point.y, point.z});
}

Json toJson(const SeriesSummary& series) {
  return {{"index", series.index},
          {"class", series.className},
          {"barIndex", series.barIndex},
          {"reference", series.reference ? Json(*series.reference) : Json()},
          {"number", series.number},
          {"spacings", series.spacings},
          {"hidden", series.isHidden}};
}

Json classesToJson(const FileSummary& summary) {
  Json classes = Json::array();
  for (const ClassCount& one : summary.classes) {
    classes.push_back({{"class", one.className}, {"known", one.isKnown}, {"count", one.count}});
  }
  return classes;
}

Json barsToJson(const FileSummary& summary) {
  Json bars = Json::array();
  for (const BarCount& one : summary.bars) {
    bars.push_back({{"diameter", one.diameter},
                    {"grade", one.grade},
                    {"elements", one.elements},
                    {"number", one.number}});
  }
  return bars;
}

Json toJson(const TransferFile& file, const FileSummary& summary) {
  Json result = {{"file", file.name()}, {"bytes", file.size()}};
  result["encoding"] = file.encoding().name();
  result["drawing"] = nullptr;
  if (summary.control) {
    const ControlSummary& control = *summary.control;
    result["drawing"] = {{"name", control.name},
                         {"version", control.version},
                         {"servicePack", control.servicePack},
                         {"checkSum", control.checkSum}};
  }
  result["elements"] = file.elements().size();
  result["classes"] = classesToJson(summary);
  result["bars"] = barsToJson(summary);
  result["references"] = summary.references;
  result["hidden"] = summary.hidden;
  result["repartitions"] = Json::array();
  for (const SeriesSummary& series : summary.repartitions) {
    result["repartitions"].push_back(toJson(series));
  }
  result["extents"] = nullptr;
  if (summary.extents) {
    result["extents"] = {{"min", toJson(summary.extents->least)},
                         {"max", toJson(summary.extents->most)}};
  }
  result["angles"] = nullptr;
  if (summary.angles.angles != 0) {
    result["angles"] = {{"guessedUnit", angleUnitName(summary.angles.unit)},
                        {"count", summary.angles.angles}};
  }
  return result;
}

void printHead(const TransferFile& file, const FileSummary& summary, std::ostream& out) {
  out << printable(file.name()) << '\n';
  if (summary.control) {
    const ControlSummary& control = *summary.control;
    out << "  drawing       " << printable(control.name) << '\n'
        << "  produced by   version " << printable(control.version) << ", service pack "
        << control.servicePack << '\n'
        << "  check sum     " << control.checkSum << '\n';
  } else {
    out << "  drawing       no drawing control record\n";
  }
  out << "  encoding      " << printable(file.encoding().name()) << ", " << file.size()
      << " bytes\n";
  if (summary.extents) {
    const auto side = [](double least, double most) {
      return rounded(least, 1) + " to " + rounded(most, 1);
    };
    const Extents& box = *summary.extents;
    out << "  extents       x " << side(box.least.x, box.most.x) << ", y "
        << side(box.least.y, box.most.y) << ", z " << side(box.least.z, box.most.z) << '\n';
  }
  if (summary.angles.angles != 0) {
    out << "  angles        " << angleUnitName(summary.angles.unit) << ", guessed from "
        << summary.angles.angles << '\n';
  }
  out << "  hidden        " << summary.hidden << '\n'
      << "  elements      " << file.elements().size() << '\n';
}

void printClasses(const FileSummary& summary, std::ostream& out) {
  Table table;
  table.addColumn("class");
  table.addColumn("elements", Table::Align::kRight);
  for (const ClassCount& one : summary.classes) {
    table.addRow({std::string(one.className) + (one.isKnown ? "" : " (not known)"),
                  std::to_string(one.count)});
  }
  if (!table.empty()) {
    out << '\n';
    table.print(out, kIndent);
  }
}

void printBars(const FileSummary& summary, std::ostream& out) {
  Table table;
  table.addColumn("diameter", Table::Align::kRight);
  table.addColumn("grade");
  table.addColumn("elements", Table::Align::kRight);
  table.addColumn("bars", Table::Align::kRight);
  for (const BarCount& one : summary.bars) {
    table.addRow({rounded(one.diameter, 2), one.grade, std::to_string(one.elements),
                  std::to_string(one.number)});
  }
  if (!table.empty()) {
    out << '\n';
    table.print(out, kIndent);
  }
}

void printRepartitions(const FileSummary& summary, bool showsAll, std::ostream& out) {
  Table table;
  table.addColumn("repartition", Table::Align::kRight);
  table.addColumn("bars", Table::Align::kRight);
  table.addColumn("mark", Table::Align::kRight);
  table.addColumn("of");
  table.addColumn("spacing");
  const std::size_t shown =
      showsAll ? summary.repartitions.size() : std::min(kMostSeries, summary.repartitions.size());
  for (const SeriesSummary& series : std::span(summary.repartitions).first(shown)) {
    const std::string bar = series.className + ' ' + std::to_string(series.barIndex);
    table.addRow({series.index, std::to_string(series.number),
                  series.reference ? std::to_string(*series.reference) : "-",
                  series.reference ? bar : bar + " (not there)",
                  spacingText(series.spacings) + (series.isHidden ? " (hidden)" : "")});
  }
  if (!table.empty()) {
    out << '\n';
    table.print(out, kIndent);
  }
  if (shown < summary.repartitions.size()) {
    out << "  and " << summary.repartitions.size() - shown << " more: --all shows them\n";
  }
}

void print(const TransferFile& file, const FileSummary& summary, bool showsAll, std::ostream& out) {
  printHead(file, summary, out);
  if (!summary.references.empty()) {
    out << "  references    " << runsOf(summary.references, kMostPerLine) << '\n';
  }
  printClasses(summary, out);
  printBars(summary, out);
  printRepartitions(summary, showsAll, out);
}

// Shows the files, and goes on where one cannot be read: the others are wanted all the same.
class InfoRun {
 public:
  InfoRun(const InfoArguments& arguments, Console& console)
      : m_arguments(arguments), m_console(console) {}

  int run() {
    for (const std::string& argument : m_arguments.files) {
      tryTo([&] {
        for (const std::string& name : filesNamedBy(argument)) {
          tryTo([&] { show(name); });
        }
      });
    }
    if (m_arguments.asJson) {
      m_console.out << indentedJson({{"files", std::move(m_files)}});
    }
    return m_status;
  }

 private:
  template <class Action>
  void tryTo(const Action& action) {
    try {
      action();
    } catch (const Failure& failure) {
      m_console.err << "quorvan: " << printable(failure.what()) << '\n';
      m_status = kFailure;
    }
  }

  void show(const std::string& name) {
    const TransferFile file(name, m_console);
    const FileSummary summary = summarize(file);
    if (m_arguments.asJson) {
      m_files.push_back(toJson(file, summary));
      return;
    }
    m_console.out << (m_isFirst ? "" : "\n");
    m_isFirst = false;
    print(file, summary, m_arguments.showsAll, m_console.out);
  }

  const InfoArguments& m_arguments;
  Console& m_console;
  Json m_files = Json::array();
  int m_status = kSuccess;
  bool m_isFirst = true;
};

void addInfoOptions(CLI::App& command, Run& run) {
  const auto arguments = std::make_shared<InfoArguments>();
  command.add_option("FILE", arguments->files, "Transfer files, or folders of them")->required();
  command.add_flag("--json", arguments->asJson, "As JSON (docs/schema/info.schema.json)");
  command.add_flag("--all", arguments->showsAll, "Every repartition, not only the first 20");
  command.callback([arguments, &run] { run.status = InfoRun(*arguments, run.console).run(); });
}

}  // namespace

constinit const Command kInfoCommand = {
    .name = "info",
    .summary = "What files hold, in figures: name, classes, bars, extents",
    .description =
        "Drawing name, producing version, service pack and check sum; elements by class; bars "
        "by diameter and grade; references; hidden elements; repartitions with number and "
        "spacing; extents; the unit that angles seem to have; encoding.",
    .examples =
        "quorvan info beam.xml\n"
        "quorvan info --json *.xml > inventory.json",
    .exitCodes = {},
    .addOptions = addInfoOptions,
};

}  // namespace quorvan::tool
