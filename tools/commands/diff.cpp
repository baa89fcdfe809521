// quorvan diff: what two drawings differ by.

#include <algorithm>
#include <fstream>
#include <memory>
#include <optional>

#include <CLI/CLI.hpp>

#include <tools/commands/command_table.h>
#include <tools/commands/picture_file.h>
#include <tools/diff/difference.h>
#include <tools/diff/difference_text.h>
#include <tools/draw/page/review_page.h>
#include <tools/draw/review/review_scene.h>
#include <tools/files/input_file.h>
#include <tools/files/work_folder.h>
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
  std::string output;
  bool asJson = false;
};

class Report {
 public:
  Report(const TransferFile& before, const TransferFile& after,
         const std::vector<Difference>& differences)
      : m_before(before), m_after(after), m_differences(differences), m_texts(before, after) {}

  void print(std::ostream& out) {
    if (m_differences.empty()) {
      return;
    }
    for (const DifferenceGroup& group : groupsOf(m_differences)) {
      print(group, out);
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
  void print(const DifferenceGroup& group, std::ostream& out) {
    const Difference& first = *group.front();
    out << printable(m_texts.lineOf(group)) << "  ["
        << printable(group.size() == 1 ? m_texts.source(first) : DifferenceTexts::classesOf(group))
        << "]\n";
    for (const ItemChange& change : first.items) {
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
                   {"description", m_texts.describe(one)}};
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
  DifferenceTexts m_texts;
};

// The drawings over each other; the page has the list beside them, the other forms in the picture.
void writeReview(const Review& review, const std::string& output, Console& console) {
  const WorkFolder folder(output, console);
  if (formOf(output) == ".html") {
    std::ofstream out(folder.file(), std::ios::binary);
    writeReviewPage(review.scene, review.lines, review.notes, out);
    closeWritten(out, output);
  } else {
    writeScene(withList(review), {output, std::nullopt}, folder.file(), console);
  }
  folder.moveToTarget();
}

int diff(const DiffArguments& arguments, Console& console) {
  if (!(arguments.tolerance >= 0.0)) {
    throw Failure("the tolerance must not be below 0");
  }
  if (!arguments.output.empty()) {
    if (formOf(arguments.output) == ".dxf") {
      throw Failure(arguments.output + ": a review is drawn as .svg, .html, .png or .pdf");
    }
    refuseSameFile(arguments.before, arguments.output);
    refuseSameFile(arguments.after, arguments.output);
  }
  const TransferFile before(arguments.before, console);
  const TransferFile after(arguments.after, console);
  const std::vector<Difference> differences =
      compareFiles(before, after, arguments.tolerance, console);
  if (!arguments.output.empty()) {
    writeReview(reviewOf(before, after, differences, {}), arguments.output, console);
  }
  Report report(before, after, differences);
  if (arguments.output == kStandardStream) {
    // The picture is all that goes there.
  } else if (arguments.asJson) {
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
  command.add_option("-o,--output", arguments->output,
                     "Picture of both drawings over each other; its ending says the form: .svg "
                     ".html .png .pdf");
  command.add_flag("--json", arguments->asJson, "As JSON (docs/schema/diff.schema.json)");
  command.callback([arguments, &run] { run.status = diff(*arguments, run.console); });
}

}  // namespace

constinit const Command kDiffCommand = {
    .name = "diff",
    .summary = "What two drawings differ by",
    .description =
        "What two drawings differ by: deleted, added, moved and changed elements. They are "
        "compared by content, not by index. With -o, also a picture of both over each other, with "
        "clouds round the changes and a list of them.",
    .examples =
        "quorvan diff beam-a.xml beam-b.xml\n"
        "quorvan diff beam-a.xml beam-b.xml -o review.html   a page that leads to each change\n"
        "quorvan diff --tolerance 0.5 --json old.xml new.xml",
    .exitCodes = {"equal", "different", "a file that cannot be read"},
    .addOptions = addDiffOptions,
};

}  // namespace quorvan::tool
