// quorvan draw: the drawing as a detailer draws it.

#include <fstream>
#include <memory>

#include <tools/commands/command_table.h>
#include <tools/console/terminal.h>
#include <tools/draw/page/html_page.h>
#include <tools/draw/scene/sheet.h>
#include <tools/draw/scene_builder.h>
#include <tools/draw/writers/svg_writer.h>
#include <tools/files/work_folder.h>
#ifdef QUORVAN_HAS_CAIRO
#include <tools/draw/writers/cairo_writer.h>
#endif

namespace quorvan::tool {

namespace {

struct DrawArguments {
  std::string file;
  std::string output;
  std::string sheet;
  double scale = 0.0;
  double dotsPerInch = 150.0;
  std::string unit = "mm";
  std::string plane = "xy";
  std::string colors = "auto";
  std::string angles = "auto";
  std::string hidden = "dashed";
  std::string marks = "auto";
};

template <class Value>
struct Named {
  std::string_view name;
  Value value;
};

constexpr Named<Plane> kPlanes[] = {{"xy", Plane::kXY}, {"xz", Plane::kXZ}, {"yz", Plane::kYZ}};
constexpr Named<AngleUnit> kAngleUnits[] = {{"deg", AngleUnit::kDegrees},
                                            {"rad", AngleUnit::kRadians}};
constexpr Named<HiddenBars> kHiddenBars[] = {
    {"dashed", HiddenBars::kDashed}, {"off", HiddenBars::kOff}, {"solid", HiddenBars::kSolid}};
constexpr Named<Marks> kMarks[] = {
    {"auto", Marks::kAuto}, {"all", Marks::kAll}, {"none", Marks::kNone}};

// The value of that name; the arguments were held against the names before.
template <class Value, std::size_t Count>
std::optional<Value> named(const Named<Value> (&values)[Count], std::string_view name) {
  for (const Named<Value>& one : values) {
    if (one.name == name) {
      return one.value;
    }
  }
  return std::nullopt;
}

DrawOptions drawOptions(const DrawArguments& arguments) {
  DrawOptions result;
  result.plane = named(kPlanes, arguments.plane).value_or(Plane::kXY);
  for (const LengthUnit& unit : kLengthUnits) {
    if (unit.name == arguments.unit) {
      result.unit = &unit;
    }
  }
  if (!arguments.sheet.empty()) {
    result.sheet = sheetNamed(arguments.sheet);
    if (!result.sheet) {
      throw Failure('"' + arguments.sheet +
                    "\" is not a sheet; there are A0 to A5, upright with a u behind (A4u), and "
                    "sizes in mm such as 630x297");
    }
  }
  if (arguments.scale > 0.0) {
    result.scale = arguments.scale;
  }
  result.colors = colorSchemeNamed(arguments.colors);
  result.angles = named(kAngleUnits, arguments.angles);
  result.hidden = named(kHiddenBars, arguments.hidden).value_or(HiddenBars::kDashed);
  result.marks = named(kMarks, arguments.marks).value_or(Marks::kAuto);
  return result;
}

void writePicture(const TransferFile& file, const Scene& scene, const DrawArguments& arguments,
                  const DrawOptions& drawing, const std::filesystem::path& path) {
  const std::string form = toUtf8(toPath(arguments.output).extension());
  if (form == ".svg" || form == ".html") {
    std::ofstream out(path, std::ios::binary);
    if (form == ".svg") {
      writeSvg(scene, {}, out);
    } else {
      writeHtmlPage(file, scene, *drawing.unit, out);
    }
    out.close();
    if (!out) {
      throw Failure(arguments.output + ": cannot be written");
    }
    return;
  }
#ifdef QUORVAN_HAS_CAIRO
  if (form == ".png") {
    return writePng(scene, arguments.dotsPerInch, path);
  }
  if (form == ".pdf") {
    return writePdf(scene, path);
  }
#else
  if (form == ".png" || form == ".pdf") {
    throw Failure(arguments.output + ": this build writes .svg and .html only; it has no cairo");
  }
#endif
  throw Failure(arguments.output + ": the name must end in .svg, .html, .png or .pdf");
}

void draw(const DrawArguments& arguments, Console& console) {
  const DrawOptions drawing = drawOptions(arguments);
  refuseSameFile(arguments.file, arguments.output);
  const TransferFile file(arguments.file, console);
  const SceneResult result = buildScene(file, drawing, console);
  if (result.leftOut != 0) {
    console.err << arguments.file << ": warning: " << result.leftOut
                << " elements are left out: they lie beyond what can be drawn\n";
  }
  const WorkFolder folder(toPath(arguments.output));
  writePicture(file, result.scene, arguments, drawing, folder.file());
  folder.moveToTarget();
}

// Every name of the values, and what else the option takes.
template <class Value, std::size_t Count>
std::vector<std::string> namesOf(const Named<Value> (&values)[Count],
                                 std::vector<std::string> names = {}) {
  for (const Named<Value>& one : values) {
    names.emplace_back(one.name);
  }
  return names;
}

void addStyleOptions(CLI::App& command, DrawArguments& arguments, Run& run) {
  oneOf(command.add_option("--colors", arguments.colors,
                           "What colour numbers are: auto, index, rgb, bgr"),
        {"auto", "index", "rgb", "bgr"}, run)
      ->capture_default_str();
  oneOf(command.add_option("--angles", arguments.angles, "What angles are: auto, deg, rad"),
        namesOf(kAngleUnits, {"auto"}), run)
      ->capture_default_str();
  oneOf(command.add_option("--hidden", arguments.hidden, "Hidden bars: dashed, off, solid"),
        namesOf(kHiddenBars), run)
      ->capture_default_str();
  oneOf(command.add_option("--marks", arguments.marks,
                           "Bar marks: auto (those that no text names), all, none"),
        namesOf(kMarks), run)
      ->capture_default_str();
}

void addSheetOptions(CLI::App& command, DrawArguments& arguments, Run& run) {
  CLI::Option* const sheet =
      command.add_option("--sheet", arguments.sheet,
                         "A0 to A5, upright A0u to A5u, or width x height in mm; A3 unless given");
  run.words[sheet] = {"A0", "A1", "A2", "A3", "A4", "A5", "A0u", "A1u", "A2u", "A3u", "A4u", "A5u"};
  command.add_option("--scale", arguments.scale, "25 for 1:25; the largest usual one unless given")
      ->check(CLI::PositiveNumber);
  oneOf(command.add_option("--unit", arguments.unit, "Unit of the drawing's lengths: mm, cm or m"),
        {"mm", "cm", "m"}, run)
      ->capture_default_str();
  oneOf(command.add_option("--plane", arguments.plane, "What is seen: xy, xz or yz"),
        namesOf(kPlanes), run)
      ->capture_default_str();
}

void addDrawOptions(CLI::App& command, Run& run) {
  const auto arguments = std::make_shared<DrawArguments>();
  command.add_option("FILE", arguments->file, "Transfer file")->required();
  command
      .add_option("-o,--output", arguments->output,
                  "Picture to write; its ending says the form: .svg .html .png .pdf")
      ->required();
  addSheetOptions(command, *arguments, run);
  addStyleOptions(command, *arguments, run);
  command.add_option("--dpi", arguments->dotsPerInch, "Fineness of a PNG")
      ->check(CLI::Range(10.0, 1200.0))
      ->capture_default_str();
  command.callback([arguments, &run] { draw(*arguments, run.console); });
}

}  // namespace

constinit const Command kDrawCommand = {
    .name = "draw",
    .summary = "The drawing as SVG, HTML page, PNG or PDF",
    .description =
        "The drawing as the detailer draws it. The ending of the picture's name says the form: "
        ".svg, .html, .png or .pdf.",
    .examples =
        "quorvan draw beam.xml -o beam.svg\n"
        "quorvan draw beam.xml -o beam.html            a page to move about in\n"
        "quorvan draw beam.xml -o beam.pdf --sheet A1 --scale 25\n"
        "quorvan draw beam.xml -o beam.png --hidden off --marks all --dpi 300",
    .exitCodes = {},
    .addOptions = addDrawOptions,
};

}  // namespace quorvan::tool
