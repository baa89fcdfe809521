#include <tools/draw/writers/pdf_writer.h>

#include <tools/draw/writers/cairo_writer.h>
#include <tools/files/source_text.h>
#ifdef QUORVAN_HAS_QPDF
#include <tools/draw/writers/pdf_document.h>
#endif

namespace quorvan::tool {

void writePdf(std::span<const Scene> pages, const std::filesystem::path& path) {
#ifdef QUORVAN_HAS_QPDF
  if (const auto bytes = pdfDocument(pages)) {
    return writeBytes(path, *bytes);
  }
#endif
  writeBytes(path, paintedPdf(pages));
}

void writePdf(const Scene& scene, const std::filesystem::path& path) {
  writePdf(std::span(&scene, 1), path);
}

}  // namespace quorvan::tool
