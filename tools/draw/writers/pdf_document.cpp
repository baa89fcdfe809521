#include <tools/draw/writers/pdf_document.h>

#include <tools/draw/writers/pdf_file.h>
#include <tools/draw/writers/pdf_page.h>
#include <tools/draw/writers/pdf_texts.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

std::string boxOf(const Scene& page) {
  constexpr double kPointsOfMillimetre = 72.0 / 25.4;
  constexpr int kDecimals = 5;
  return "[0 0 " + rounded(page.width * kPointsOfMillimetre, kDecimals) + ' ' +
         rounded(page.height * kPointsOfMillimetre, kDecimals) + ']';
}

}  // namespace

std::optional<std::string> pdfDocument(std::span<const Scene> pages) {
  PdfTexts texts;
  for (const Scene& page : pages) {
    for (const Shape& shape : page.shapes) {
      if (shape.kind == Shape::Kind::kText && !texts.add(shape.lettering.text)) {
        return std::nullopt;
      }
    }
  }
  PdfFile file;
  const std::string fonts = texts.fonts().putInto(file);
  const std::size_t tree = file.reserve();
  std::string kids;
  for (const Scene& page : pages) {
    const std::size_t content = file.putStream(pdfContent(page, texts));
    kids += (kids.empty() ? "" : " ") +
            pdfReference(file.put("<</Type/Page/Parent " + pdfReference(tree) + "/MediaBox" +
                                  boxOf(page) + "/Resources<</Font<<" + fonts + ">>>>/Contents " +
                                  pdfReference(content) + ">>"));
  }
  file.put(tree, "<</Type/Pages/Count " + std::to_string(pages.size()) + "/Kids[" + kids + "]>>");
  // The same drawing gives the same bytes.
  const std::size_t information = file.put("<</Title" + pdfText(pages.front().title) +
                                           "/Producer(Quorvan)/CreationDate(D:20000101000000Z)>>");
  const std::size_t catalog = file.put("<</Type/Catalog/Pages " + pdfReference(tree) + ">>");
  return file.finish(catalog, information);
}

}  // namespace quorvan::tool
