#include <tools/commands/draw_dxf.h>

#include <fstream>
#include <string_view>

#include <tools/draw/dxf_drawing.h>
#include <tools/model/description.h>
#include <tools/model/item_reader.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

constexpr std::size_t kMostNamed = 5;

// "beam.xml: warning: what it is: 7: line at (0, 0, 0); ..."
void name(const TransferFile& file, std::string_view what,
          const std::vector<std::uint32_t>& elements, Console& console) {
  if (elements.empty()) {
    return;
  }
  console.err << printable(file.name()) << ": " << what << ": " << elements.size() << ": ";
  ItemReader reader(file);
  for (std::size_t i = 0; i < elements.size() && i < kMostNamed; ++i) {
    const Element& element = file.elements()[elements[i]];
    console.err << (i == 0 ? "" : "; ") << printable(describe(element, reader.read(element)));
  }
  console.err << (elements.size() > kMostNamed ? "; ...\n" : "\n");
}

void report(const TransferFile& file, const DxfLosses& losses, Console& console) {
  name(file, "warning: elements left out, which lie beyond what a DXF can hold", losses.leftOut,
       console);
  name(file, "warning: texts cut, which are longer than a DXF can hold", losses.cut, console);
  name(file, "warning: texts with characters that ANSI 1252 lacks, written as \\U+nnnn",
       losses.escaped, console);
  name(file, "note: texts with control characters, which become blanks", losses.broken, console);
  name(file,
       "warning: fills too intricate for R12, which has their outline (--dxf 2000 fills them)",
       losses.intricate, console);
  if (losses.withoutHeight != 0) {
    console.err << printable(file.name())
                << ": note: texts without a height are drawn as high as labels: "
                << losses.withoutHeight << '\n';
  }
}

}  // namespace

void drawDxf(const TransferFile& file, const DrawOptions& options, const DxfOptions& dxf,
             const std::filesystem::path& path, Console& console) {
  std::ofstream out(path, std::ios::binary);
  const DxfLosses losses = writeDxf(file, options, dxf, console, out);
  out.close();
  if (!out) {
    throw Failure(printable(file.name()) + ": its DXF cannot be written");
  }
  report(file, losses, console);
}

}  // namespace quorvan::tool
