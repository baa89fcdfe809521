#include <tools/commands/draw_report.h>

#include <algorithm>
#include <string>
#include <vector>

#include <tools/model/description.h>
#include <tools/model/item_reader.h>
#include <tools/text/counted_noun.h>
#include <tools/text/number_text.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

// Names the elements that are not on the sheet because they lie far from the others.
void reportOutliers(const TransferFile& file, const std::vector<std::uint32_t>& outliers,
                    Console& console) {
  constexpr std::size_t kMostNamed = 5;
  if (outliers.empty()) {
    return;
  }
  console.err << printable(file.name()) << ": warning: " << counted(outliers.size(), "element")
              << (outliers.size() == 1 ? " lies" : " lie") << " far from the others and "
              << (outliers.size() == 1 ? "is" : "are")
              << " left out (--window all draws everything): ";
  ItemReader reader(file);
  for (std::size_t i = 0; i < outliers.size() && i < kMostNamed; ++i) {
    const Element& element = file.elements()[outliers[i]];
    console.err << (i == 0 ? "" : "; ") << printable(describe(element, reader.read(element)));
  }
  console.err << (outliers.size() > kMostNamed ? "; ...\n" : "\n");
}

}  // namespace

void reportScale(const TransferFile& file, const SceneResult& result, Console& console) {
  const std::vector<double>& stated = result.statedScales;
  if (stated.empty() || std::ranges::find(stated, result.scale) != stated.end()) {
    return;
  }
  const std::string scale = rounded(stated.front(), 2);
  console.err << printable(file.name()) << ": note: a text states 1:" << scale
              << ", drawn at 1:" << rounded(result.scale, 2)
              << ": --unit says what a unit of length is, --scale " << scale << " sets the scale\n";
}

void reportDrawn(const TransferFile& file, const SceneResult& result, const DrawOptions& options,
                 Console& console) {
  const bool isEmpty = std::ranges::all_of(
      result.scene.shapes, [](const Shape& shape) { return shape.element == kNoElement; });
  if (isEmpty) {
    console.err << printable(file.name())
                << ": warning: nothing is drawn: there is no element in it that can be seen\n";
  }
  if (result.leftOut != 0) {
    console.err << printable(file.name()) << ": warning: " << counted(result.leftOut, "element")
                << (result.leftOut == 1 ? " is left out: it lies" : " are left out: they lie")
                << " beyond what can be drawn\n";
  }
  if (!options.window) {
    reportOutliers(file, result.outliers, console);
  }
  if (result.withoutHeight != 0) {
    console.err << printable(file.name())
                << ": note: texts without a height are drawn as high as labels: "
                << result.withoutHeight << '\n';
  }
  if (result.darkened != 0) {
    console.err << printable(file.name())
                << ": note: colours too pale for paper are drawn darker: " << result.darkened
                << '\n';
  }
}

}  // namespace quorvan::tool
