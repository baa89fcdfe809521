// quorvan write: a JSON drawing becomes a transfer file, through the flat functions.

#include <memory>
#include <stdexcept>

#include <CLI/CLI.hpp>

#include <quorvan/export/export.h>
#include <quorvan/platform/com_error.h>
#include <quorvan/text/utf8.h>

#include <tools/commands/command_table.h>
#include <tools/console/progress.h>
#include <tools/console/terminal.h>
#include <tools/drawing/drawing_file.h>
#include <tools/drawing/element_exports.h>
#include <tools/files/work_folder.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

struct WriteArguments {
  std::string drawing;
  std::string output;
};

// A filing that did not come to its end leaves nothing behind for the next.
class Filing {
 public:
  explicit Filing(const std::string& path) { startFiling(fromUtf8(path)); }
  Filing(const Filing&) = delete;
  Filing& operator=(const Filing&) = delete;
  ~Filing() {
    if (m_isEnded) {
      return;
    }
    try {
      stopFiling();
      endFiling(L"", 0, L"", 0);
    } catch (...) {  // NOLINT(bugprone-empty-catch): the failure that led here is the one to tell
    }
  }

  void end(const std::optional<ControlInput>& control) {
    if (control) {
      endFiling(fromUtf8(control->version), static_cast<long>(control->servicePack),
                fromUtf8(control->name), static_cast<int>(control->checkSum));
    } else {
      fileSeries();
      stopFiling();  // writes no control record
      endFiling(L"", 0, L"", 0);
    }
    m_isEnded = true;
  }

 private:
  bool m_isEnded = false;
};

void fileDrawing(const DrawingInput& drawing, const std::string& path, Progress& progress) {
  Filing filing(path);
  std::size_t done = 0;
  for (const DrawingEntry& entry : drawing.entries) {
    progress.report(done++, drawing.entries.size());
    if (entry.element.schema == nullptr) {
      pushSeries(entry.series);
    } else {
      exportElement(entry.element);
    }
  }
  filing.end(drawing.control);
}

void write(const WriteArguments& arguments, Console& console) {
  refuseSameFile(arguments.drawing, arguments.output);
  const DrawingInput drawing = readDrawing(arguments.drawing);
  Progress progress(console, "writing " + printable(arguments.output));
  const WorkFolder folder(arguments.output, console);
  try {
    // A name without its folder, whose own may be one that the document service cannot open.
    const CurrentFolder current(folder.path());
    fileDrawing(drawing, toUtf8(folder.file().filename()), progress);
  } catch (const _com_error&) {
    throw Failure(arguments.output +
                  ": the XML document service failed while the drawing was filed");
  } catch (const std::out_of_range&) {
    throw Failure(arguments.drawing +
                  ": a series of which one frame alone is left; it needs two, but for straight "
                  "bars seen in view 1");
  }
  folder.moveToTarget();
}

void addWriteOptions(CLI::App& command, Run& run) {
  const auto arguments = std::make_shared<WriteArguments>();
  command
      .add_option("DRAWING", arguments->drawing, "Drawing JSON (docs/schema/drawing.schema.json)")
      ->required();
  command.add_option("-o,--output", arguments->output, "Transfer file to write")->required();
  command.callback([arguments, &run] { write(*arguments, run.console); });
}

}  // namespace

constinit const Command kWriteCommand = {
    .name = "write",
    .summary = "A JSON drawing as a transfer file",
    .description = "A JSON drawing, as `quorvan list --json` gives it, as a transfer file.",
    .examples =
        "quorvan write beam.json -o beam.xml\n"
        "quorvan list old.xml --json > d.json && quorvan write d.json -o new.xml",
    .exitCodes = {},
    .addOptions = addWriteOptions,
};

}  // namespace quorvan::tool
