// quorvan diff: what two drawings differ by.

#include <algorithm>
#include <memory>

#include <tools/commands/command_table.h>
#include <tools/diff/difference.h>
#include <tools/model/class_names.h>
#include <tools/model/description.h>
#include <tools/model/item_reader.h>
#include <tools/text/json_text.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

constexpr DifferenceKind kKinds[] = {DifferenceKind::kDeleted, DifferenceKind::kAdded,
                                     DifferenceKind::kMoved, DifferenceKind::kChanged};

struct DiffArguments {
  std::string before;
  std::string after;
  double tolerance = 0.001;
  bool asJson = false;
};

class Report {
 public:
  Report(const TransferFile& before, const TransferFile& after,
         const std::vector<Difference>& differences)
      : m_before(before), m_after(after), m_differences(differences), m_old(before), m_new(after) {}

  void print(std::ostream& out) {
    if (m_differences.empty()) {
      return;
    }
    for (const Difference& one : m_differences) {
      print(one, out);
    }
    out << '\n';
    const char* separator = "";
    for (const DifferenceKind kind : kKinds) {
      out << separator << count(kind) << ' ' << differenceName(kind);
      separator = ", ";
    }
    out << '\n';
  }

  Json toJson(double tolerance) {
    Json result = {{"before", m_before.name()}, {"after", m_after.name()}};
    result["tolerance"] = tolerance;
    for (const DifferenceKind kind : kKinds) {
      result[std::string(differenceName(kind))] = count(kind);
    }
    result["differences"] = Json::array();
    for (const Difference& one : m_differences) {
      result["differences"].push_back(toJson(one));
    }
    return result;
  }

 private:
  // Of the old element where there is one.
  std::string describe(const Difference& one) {
    const Element& element = one.before != nullptr ? *one.before : *one.after;
    if (element.schema == nullptr) {
      return std::string(element.className()) + " (not known)";
    }
    return tool::describe(element,
                          one.before != nullptr ? m_old.read(element) : m_new.read(element));
  }

  [[nodiscard]] std::string source(const Difference& one) const {
    const auto name = [](const TransferFile& file, const Element& element) {
      return std::string(shortClassName(element.className())) + ' ' +
             std::string(file.indexOf(element));
    };
    if (one.before == nullptr) {
      return name(m_after, *one.after);
    }
    if (one.after == nullptr || m_before.indexOf(*one.before) == m_after.indexOf(*one.after)) {
      return name(m_before, *one.before);
    }
    return name(m_before, *one.before) + ", now " + std::string(m_after.indexOf(*one.after));
  }

  void print(const Difference& one, std::ostream& out) {
    out << differenceName(one.kind) << ": " << printable(describe(one));
    if (one.kind == DifferenceKind::kMoved) {
      out << ", by " << placeText(one.by);
    }
    out << "  [" << printable(source(one)) << "]\n";
    for (const ItemChange& change : one.items) {
      out << "    " << change.item << ": " << printable(change.before) << " \u2192 "
          << printable(change.after) << '\n';
    }
  }

  [[nodiscard]] std::int64_t count(DifferenceKind kind) const {
    return std::ranges::count(m_differences, kind, &Difference::kind);
  }

  Json toJson(const Difference& one) {
    const Element& element = one.before != nullptr ? *one.before : *one.after;
    Json result = {{"kind", differenceName(one.kind)},
                   {"class", element.className()},
                   {"description", describe(one)}};
    result["indexBefore"] = nullptr;
    result["indexAfter"] = nullptr;
    if (one.before != nullptr) {
      result["indexBefore"] = m_before.indexOf(*one.before);
    }
    if (one.after != nullptr) {
      result["indexAfter"] = m_after.indexOf(*one.after);
    }
    if (one.kind == DifferenceKind::kMoved) {
      result["by"] = Json::array({one.by.x, one.by.y, one.by.z});
    }
    if (one.kind == DifferenceKind::kChanged) {
      result["items"] = Json::array();
      for (const ItemChange& change : one.items) {
        result["items"].push_back(
            {{"item", change.item}, {"before", change.before}, {"after", change.after}});
      }
    }
    return result;
  }

  const TransferFile& m_before;
  const TransferFile& m_after;
  const std::vector<Difference>& m_differences;
  ItemReader m_old;
  ItemReader m_new;
};

int diff(const DiffArguments& arguments, Console& console) {
  if (!(arguments.tolerance >= 0.0)) {
    throw Failure("the tolerance must not be below 0");
  }
  const TransferFile before(arguments.before, console);
  const TransferFile after(arguments.after, console);
  const std::vector<Difference> differences =
      compareFiles(before, after, arguments.tolerance, console);
  Report report(before, after, differences);
  if (arguments.asJson) {
    console.out << indentedJson(report.toJson(arguments.tolerance));
  } else {
    report.print(console.out);
  }
  return differences.empty() ? kSuccess : kFindings;
}

void addDiffOptions(CLI::App& command, Run& run) {
  const auto arguments = std::make_shared<DiffArguments>();
  command.add_option("BEFORE", arguments->before, "Transfer file")->required();
  command.add_option("AFTER", arguments->after, "Transfer file to compare with it")->required();
  command
      .add_option("--tolerance", arguments->tolerance, "Numbers that differ by no more are equal")
      ->capture_default_str();
  command.add_flag("--json", arguments->asJson, "As JSON (docs/schema/diff.schema.json)");
  command.callback([arguments, &run] { run.status = diff(*arguments, run.console); });
}

}  // namespace

constinit const Command kDiffCommand = {
    .name = "diff",
    .summary = "What two drawings differ by",
    .description =
        "What two drawings differ by: deleted, added, moved and changed elements. They are "
        "compared by content, not by index.",
    .examples =
        "quorvan diff beam-a.xml beam-b.xml\n"
        "quorvan diff --tolerance 0.5 --json old.xml new.xml",
    .exitCodes = {"equal", "different", "a file that cannot be read"},
    .addOptions = addDiffOptions,
};

}  // namespace quorvan::tool
