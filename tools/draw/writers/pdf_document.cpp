#include <tools/draw/writers/pdf_document.h>

#include <qpdf/Pl_Flate.hh>

#include <memory>
#include <new>
#include <type_traits>

#include <tools/console/console.h>
#include <tools/draw/writers/pdf_objects.h>
#include <tools/draw/writers/pdf_page.h>
#include <tools/draw/writers/pdf_texts.h>

namespace quorvan::tool {

namespace {

// Packing more takes several times as long, and saves a tenth.
constexpr int kPacking = 3;

struct PdfFileEnd {
  void operator()(qpdf_data file) const { qpdf_cleanup(&file); }
};
using PdfFile = std::unique_ptr<std::remove_pointer_t<qpdf_data>, PdfFileEnd>;

PdfFile emptyFile() {
  PdfFile file(qpdf_init());
  qpdf_silence_errors(file.get());
  qpdf_empty_pdf(file.get());
  return file;
}

qpdf_oh boxOf(const Scene& page, qpdf_data file) {
  constexpr int kDecimals = 5;
  const qpdf_oh box = qpdf_oh_new_array(file);
  for (const double side : {0.0, 0.0, page.width, page.height}) {
    qpdf_oh_append_item(file, box,
                        qpdf_oh_new_real_from_double(file, side * kPointsOfMillimetre, kDecimals));
  }
  return box;
}

void addPages(std::span<const Scene> pages, const PdfTexts& texts, qpdf_data file) {
  const qpdf_oh resources = pdfDictionary(file, "<<>>", {{"/Font", texts.fonts().putInto(file)}});
  for (const Scene& page : pages) {
    qpdf_add_page(
        file, file,
        qpdf_make_indirect_object(
            file, pdfDictionary(file, "<</Type/Page>>",
                                {{"/MediaBox", boxOf(page, file)},
                                 {"/Resources", resources},
                                 {"/Contents", pdfStream(file, pdfContent(page, texts))}})),
        QPDF_FALSE);
  }
}

// The same drawing gives the same bytes: its day is always that.
void addInformation(const std::string& title, qpdf_data file) {
  const qpdf_oh information =
      pdfDictionary(file, "<</Producer(Quorvan)/CreationDate(D:20000101000000Z)>>",
                    {{"/Title", qpdf_oh_new_unicode_string(file, title.c_str())}});
  qpdf_oh_replace_key(file, qpdf_get_trailer(file), "/Info",
                      qpdf_make_indirect_object(file, information));
}

void write(qpdf_data file) {
  Pl_Flate::setCompressionLevel(kPacking);
  qpdf_init_write_memory(file);
  qpdf_set_minimum_pdf_version(file, "1.5");
  // The identification comes from what is in the file, not from the time.
  qpdf_set_deterministic_ID(file, QPDF_TRUE);
  qpdf_write(file);
}

// What was raised inside is known by its text alone.
void raiseFault(qpdf_data file) {
  if (qpdf_has_error(file) != QPDF_FALSE) {
    const std::string fault = qpdf_get_error_message_detail(file, qpdf_get_error(file));
    if (fault == std::bad_alloc().what()) {
      throw std::bad_alloc();
    }
    throw Failure("the picture cannot be drawn: " + fault);
  }
}

// Nothing where a text cannot be in a PDF.
PdfFile fileOf(std::span<const Scene> pages) {
  PdfTexts texts;
  for (const Scene& page : pages) {
    for (const Shape& shape : page.shapes) {
      if (shape.kind == Shape::Kind::kText && !texts.add(shape.lettering.text)) {
        return nullptr;
      }
    }
  }
  PdfFile file = emptyFile();
  addPages(pages, texts, file.get());
  addInformation(pages.front().title, file.get());
  raiseFault(file.get());
  return file;
}

}  // namespace

std::optional<std::string> pdfDocument(std::span<const Scene> pages) {
  const PdfFile file = fileOf(pages);
  if (file == nullptr) {
    return std::nullopt;
  }
  write(file.get());
  raiseFault(file.get());
  return std::string(reinterpret_cast<const char*>(qpdf_get_buffer(file.get())),
                     qpdf_get_buffer_length(file.get()));
}

}  // namespace quorvan::tool
