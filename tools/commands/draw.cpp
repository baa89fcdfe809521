// quorvan draw: the drawing as a detailer draws it.

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <future>
#include <memory>
#include <optional>

#include <CLI/CLI.hpp>

#include <tools/bvbs/data_file.h>
#include <tools/bvbs/sheet/shape_sheet.h>
#include <tools/commands/command_table.h>
#include <tools/commands/draw_dxf.h>
#include <tools/commands/draw_report.h>
#include <tools/commands/picture_file.h>
#include <tools/console/terminal.h>
#include <tools/draw/page/html_page.h>
#include <tools/draw/scene/sheet.h>
#include <tools/draw/scene_builder.h>
#include <tools/files/input_file.h>
#include <tools/files/work_folder.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

struct DrawArguments {
  std::string file;
  std::string output;
  std::string sheet;
  double scale = 0.0;
  std::optional<double> dotsPerInch;
  std::string unit = "mm";
  bool isUnitGiven = false;
  std::string plane = "xy";
  std::string colors = "auto";
  std::string angles = "auto";
  std::string hidden = "dashed";
  std::string marks = "auto";
  std::string window;
  std::string title = "strip";
  std::string language = "auto";
  std::string layers;
  std::string without;
  std::string dxf = "R12";
  std::string bars = "width";
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
constexpr Named<Title> kTitles[] = {{"strip", Title::kStrip}, {"none", Title::kNone}};
constexpr Named<Language> kLanguages[] = {{"en", Language::kEnglish}, {"fr", Language::kFrench}};
constexpr Named<DxfVersion> kDxfVersions[] = {{"R12", DxfVersion::kR12},
                                              {"2000", DxfVersion::k2000}};
constexpr Named<BarLines> kBarLines[] = {
    {"width", BarLines::kWidth}, {"axis", BarLines::kAxis}, {"outline", BarLines::kOutline}};
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

// The bits of the layers in a list of names with commas between them.
std::uint32_t layersNamed(std::string_view names) {
  std::uint32_t layers = 0;
  while (!names.empty()) {
    const std::size_t comma = std::min(names.find(','), names.size());
    const std::string name(names.substr(0, comma));
    const auto layer = layerNamed(name);
    if (!layer) {
      std::string message = '"' + name + "\" is not a layer; there are ";
      for (std::size_t i = 0; i < kLayers; ++i) {
        message.append(i == 0 ? "" : ", ").append(layerName(static_cast<Layer>(i)));
      }
      throw Failure(message);
    }
    layers |= 1U << static_cast<unsigned>(*layer);
    names.remove_prefix(std::min(comma + 1, names.size()));
  }
  return layers;
}

// "all", or the least and the most x and y.
void setWindow(const std::string& text, DrawOptions& options) {
  if (text.empty()) {
    return;
  }
  options.isWhole = text == "all";
  if (options.isWhole) {
    return;
  }
  std::vector<double> sides;
  const char* at = text.data();
  const char* const end = text.data() + text.size();
  while (sides.size() < 4) {
    double value = 0.0;
    const auto [next, error] = std::from_chars(at, end, value);
    if (error != std::errc() || !std::isfinite(value) || (next != end && *next != ',')) {
      break;
    }
    sides.push_back(value);
    at = next == end ? end : next + 1;
    if (next == end) {
      break;
    }
  }
  if (sides.size() != 4 || at != end || !(sides[0] < sides[2]) || !(sides[1] < sides[3])) {
    throw Failure('"' + text +
                  "\" is not a window; it is all, or least x, least y, most x, most y "
                  "in the drawing's unit: 0,-500,6000,1200");
  }
  options.window = SheetBox{{sides[0], sides[1]}, {sides[2], sides[3]}};
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
  result.title = named(kTitles, arguments.title).value_or(Title::kStrip);
  result.language = named(kLanguages, arguments.language);
  setWindow(arguments.window, result);
  if (!arguments.layers.empty()) {
    result.layers = layersNamed(arguments.layers) | layersNamed("title");
  }
  result.layers &= ~layersNamed(arguments.without);
  return result;
}

// A page, or a picture without a list.
void writePicture(const SceneResult& result, std::optional<HtmlPage>& page,
                  const DrawArguments& arguments, const std::filesystem::path& path,
                  Console& console) {
  if (!page) {
    return writeScene(result.scene, {arguments.output, arguments.dotsPerInch}, path, console);
  }
  std::ofstream out(path, std::ios::binary);
  page->write(result.scene, result.unitsPerMillimetre, out);
  closeWritten(out, arguments.output);
}

// The shapes of bending data, on one sheet.
void drawBendingData(const DrawArguments& arguments, Console& console) {
  refuseSameFile(arguments.file, arguments.output);
  if (formOf(arguments.output) == ".html" || formOf(arguments.output) == ".dxf") {
    throw Failure(arguments.output + ": bending data is drawn as .svg, .png or .pdf");
  }
  const std::string bytes = bvbs::bendingDataBytes(arguments.file);
  std::vector<bvbs::Record> records;
  for (const bvbs::DataLine& line : bvbs::linesOf(bytes)) {
    bvbs::Record record = bvbs::readRecord(line.text);
    if (record.faults.empty()) {
      records.push_back(std::move(record));
    } else {
      console.err << printable(arguments.file) << ':' << line.number << ':'
                  << record.faults.front().at + 1
                  << ": warning: the record is left out: it cannot be read (quorvan check says "
                     "why)\n";
    }
  }
  if (records.empty()) {
    throw Failure(arguments.file + ": there is no record that can be drawn");
  }
  const WorkFolder folder(arguments.output, console);
  writeScene(bvbs::shapeSheet(records), {arguments.output, arguments.dotsPerInch}, folder.file(),
             console);
  folder.moveToTarget();
}

void draw(const DrawArguments& arguments, Console& console) {
  if (bvbs::isBendingDataName(arguments.file)) {
    return drawBendingData(arguments, console);
  }
  DrawOptions drawing = drawOptions(arguments);
  refuseSameFile(arguments.file, arguments.output);
  const TransferFile file(arguments.file, console);
  if (formOf(arguments.output) == ".dxf") {
    const WorkFolder folder(arguments.output, console);
    drawDxf(file, drawing,
            {named(kDxfVersions, arguments.dxf).value_or(DxfVersion::kR12),
             named(kBarLines, arguments.bars).value_or(BarLines::kWidth)},
            folder.file(), console);
    return folder.moveToTarget();
  }
  if (!drawing.angles) {
    drawing.angles = guessAngleUnit(file).unit;
  }
  // The page has the bar list beside the drawing, whose labels say what is in it.
  std::optional<HtmlPage> page;
  if (formOf(arguments.output) == ".html") {
    ListOptions options;
    options.unit = drawing.unit;
    options.angles = drawing.angles;
    page.emplace(file, options);
  }
  const SceneResult result =
      buildScene(file, drawing, console, page ? page->list() : std::shared_future<BarList>());
  reportDrawn(file, result, drawing, console);
  if (!drawing.scale && !drawing.sheet && !arguments.isUnitGiven) {
    reportScale(file, result, console);
  }
  const WorkFolder folder(arguments.output, console);
  writePicture(result, page, arguments, folder.file(), console);
  folder.moveToTarget();
}

std::string complaintOfScale(const std::string& typed) {
  double scale = 0.0;
  const char* const end = typed.data() + typed.size();
  const auto [last, error] = std::from_chars(typed.data(), end, scale);
  return error == std::errc() && last == end && scale > 0.0
             ? std::string()
             : "a scale is a number above 0, not " + typed;
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
  oneOf(command.add_option("--language", arguments.language,
                           "Language of labels and title: auto, en, fr"),
        namesOf(kLanguages, {"auto"}), run)
      ->capture_default_str();
  oneOf(command.add_option("--title", arguments.title,
                           "Legend and title block: strip (below the drawing), none"),
        namesOf(kTitles), run)
      ->capture_default_str();
  command.add_option("--layers", arguments.layers, "Only these layers and the title: bars,links");
  command.add_option("--without", arguments.without, "Not these layers: texts,marks");
  oneOf(command.add_option("--marks", arguments.marks,
                           "Bar marks: auto (those that no text names), all, none"),
        namesOf(kMarks), run)
      ->capture_default_str();
}

void addSheetOptions(CLI::App& command, DrawArguments& arguments, Run& run) {
  CLI::Option* const sheet =
      command.add_option("--sheet", arguments.sheet,
                         "A0 to A5, upright A0u to A5u, or width x height in mm; what the drawing "
                         "needs unless given");
  run.words[sheet] = {"A0", "A1", "A2", "A3", "A4", "A5", "A0u", "A1u", "A2u", "A3u", "A4u", "A5u"};
  command
      .add_option("--scale", arguments.scale,
                  "25 for 1:25; that of the drawing's lettering unless given")
      ->check(complaintOfScale);
  command.add_option("--window", arguments.window,
                     "What to show: least x, least y, most x, most y, or all; what belongs "
                     "together unless given");
  oneOf(command.add_option("--unit", arguments.unit, "Unit of the drawing's lengths: mm, cm or m"),
        {"mm", "cm", "m"}, run)
      ->each([&arguments](const std::string&) { arguments.isUnitGiven = true; })
      ->capture_default_str();
  oneOf(command.add_option("--plane", arguments.plane, "What is seen: xy, xz or yz"),
        namesOf(kPlanes), run)
      ->capture_default_str();
}

void addDrawOptions(CLI::App& command, Run& run) {
  const auto arguments = std::make_shared<DrawArguments>();
  command.add_option("FILE", arguments->file, "Transfer file, or bending data (.abs)")->required();
  command
      .add_option("-o,--output", arguments->output,
                  "Picture to write; its ending says the form: .svg .html .png .pdf .dxf")
      ->required();
  addSheetOptions(command, *arguments, run);
  addStyleOptions(command, *arguments, run);
  command
      .add_option("--dpi", arguments->dotsPerInch,
                  "Fineness of a PNG: 150, or less for a sheet beyond A0")
      ->check(CLI::Range(10.0, 1200.0));
  oneOf(command.add_option("--dxf", arguments->dxf, "Version of a DXF: R12, 2000"),
        namesOf(kDxfVersions), run)
      ->capture_default_str();
  oneOf(command.add_option("--bars", arguments->bars,
                           "Bars in a DXF: width (polylines as wide), axis, outline"),
        namesOf(kBarLines), run)
      ->capture_default_str();
  command.callback([arguments, &run] { draw(*arguments, run.console); });
}

}  // namespace

constinit const Command kDrawCommand = {
    .name = "draw",
    .summary = "The drawing as SVG, HTML page, PNG, PDF or DXF",
    .description =
        "The drawing as the detailer draws it. The ending of the picture's name says the form: "
        ".svg, .html, .png or .pdf; or .dxf, in which every element lies at its true size for CAD "
        "programs to go on with. Of bending data (.abs), the shapes on one sheet.",
    .examples =
        "quorvan draw beam.xml -o beam.svg\n"
        "quorvan draw beam.xml -o beam.html            a page to move about in\n"
        "quorvan draw beam.xml -o beam.pdf --sheet A1 --scale 25\n"
        "quorvan draw beam.xml -o beam.dxf             for CAD programs; R12\n"
        "quorvan draw beam.xml -o beam.dxf --dxf 2000 --bars outline\n"
        "quorvan draw beam.xml -o beam.png --hidden off --marks all --dpi 300\n"
        "quorvan draw job.abs -o shapes.svg            the shapes that are bent",
    .exitCodes = {},
    .addOptions = addDrawOptions,
};

}  // namespace quorvan::tool
