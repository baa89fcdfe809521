#include <tools/commands/picture_file.h>

#include <tools/console/terminal.h>
#include <tools/draw/writers/svg_writer.h>
#include <tools/files/input_file.h>
#include <tools/files/work_folder.h>
#include <tools/text/number_text.h>
#include <tools/text/table.h>
#ifdef QUORVAN_HAS_CAIRO
#include <tools/draw/writers/cairo_writer.h>
#include <tools/draw/writers/pdf_writer.h>
#endif

namespace quorvan::tool {

namespace {

#ifdef QUORVAN_HAS_CAIRO
// What is asked for, or what is usual, but for sheets so large that the picture would be as well.
double dotsPerInchOf(const Scene& scene, const PictureFile& picture, Console& console) {
  constexpr double kUsual = 150.0;
  if (picture.dotsPerInch) {
    return *picture.dotsPerInch;
  }
  const double most = mostDotsPerInch(scene);
  if (most >= kUsual) {
    return kUsual;
  }
  console.err << printable(picture.name) << ": note: drawn with " << rounded(most, 1)
              << " dots an inch, because the sheet is large (--dpi asks for more)\n";
  return most;
}
#endif

}  // namespace

std::string formOf(const std::string& output) {
  return output == kStandardStream ? ".svg" : toUtf8(toPath(output).extension());
}

void closeWritten(std::ofstream& out, const std::string& name) {
  out.close();
  if (!out) {
    throw Failure(name + ": cannot be written");
  }
}

void writeScene(const Scene& scene, const PictureFile& picture, const std::filesystem::path& path,
                [[maybe_unused]] Console& console) {
  const std::string form = formOf(picture.name);
  if (form == ".svg") {
    std::ofstream out(path, std::ios::binary);
    writeSvg(scene, {}, out);
    return closeWritten(out, picture.name);
  }
#ifdef QUORVAN_HAS_CAIRO
  if (form == ".png") {
    return writePng(scene, dotsPerInchOf(scene, picture, console), path);
  }
  if (form == ".pdf") {
    return writePdf(scene, path);
  }
#else
  if (form == ".png" || form == ".pdf") {
    throw Failure(picture.name + ": this build writes .svg, .html and .dxf only; it has no cairo");
  }
#endif
  throw Failure(picture.name + ": the name must end in .svg, .html, .png, .pdf or .dxf");
}

}  // namespace quorvan::tool
