#include <tools/draw/writers/pdf_file.h>

#include <zlib.h>

#include <new>
#include <utility>

#include <quorvan/text/utf8.h>

namespace quorvan::tool {

namespace {

// Packing more takes several times as long, and saves a tenth.
constexpr int kPacking = 3;

std::string packed(std::string_view bytes) {
  uLongf size = compressBound(static_cast<uLong>(bytes.size()));
  std::string out(size, '\0');
  if (compress2(reinterpret_cast<Bytef*>(out.data()), &size,
                reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uLong>(bytes.size()),
                kPacking) != Z_OK) {
    throw std::bad_alloc();
  }
  out.resize(size);
  return out;
}

}  // namespace

// The second line tells that there are bytes that are no text.
PdfFile::PdfFile() : m_bytes("%PDF-1.5\n%\xB5\xED\xAE\xFB\n") {}

std::size_t PdfFile::reserve() {
  m_places.push_back(0);
  return m_places.size();
}

void PdfFile::put(std::size_t number, std::string_view body) {
  m_places[number - 1] = m_bytes.size();
  m_bytes.append(std::to_string(number)).append(" 0 obj\n").append(body).append("\nendobj\n");
}

std::size_t PdfFile::put(std::string_view body) {
  const std::size_t number = reserve();
  put(number, body);
  return number;
}

void PdfFile::putStream(std::size_t number, std::string_view bytes, std::string_view entries) {
  const std::string body = packed(bytes);
  m_places[number - 1] = m_bytes.size();
  m_bytes.append(std::to_string(number))
      .append(" 0 obj\n<</Filter/FlateDecode/Length ")
      .append(std::to_string(body.size()))
      .append(entries)
      .append(">>\nstream\n")
      .append(body)
      .append("\nendstream\nendobj\n");
}

std::size_t PdfFile::putStream(std::string_view bytes, std::string_view entries) {
  const std::size_t number = reserve();
  putStream(number, bytes, entries);
  return number;
}

std::string PdfFile::finish(std::size_t catalog, std::size_t information) {
  const std::size_t table = m_bytes.size();
  const std::string count = std::to_string(m_places.size() + 1);
  m_bytes.append("xref\n0 ").append(count).append("\n0000000000 65535 f \n");
  for (const std::size_t place : m_places) {
    const std::string digits = std::to_string(place);
    m_bytes.append(digits.size() < 10 ? 10 - digits.size() : 0, '0')
        .append(digits)
        .append(" 00000 n \n");
  }
  m_bytes.append("trailer\n<</Size ")
      .append(count)
      .append("/Root ")
      .append(pdfReference(catalog))
      .append("/Info ")
      .append(pdfReference(information))
      .append(">>\nstartxref\n")
      .append(std::to_string(table))
      .append("\n%%EOF\n");
  return std::move(m_bytes);
}

std::string pdfReference(std::size_t number) {
  return std::to_string(number) + " 0 R";
}

void appendPdfUnit(std::string& digits, char32_t unit) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  for (const unsigned shift : {12U, 8U, 4U, 0U}) {
    digits += kDigits[unit >> shift & 0xFU];
  }
}

std::string pdfUnits(std::string_view text) {
  constexpr char32_t kPlane = 0x10000;
  std::string digits;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) {
    const char32_t character = decodeUtf8(at, end);
    if (character < kPlane) {
      appendPdfUnit(digits, character);
    } else {
      appendPdfUnit(digits, 0xD800U + ((character - kPlane) >> 10U));
      appendPdfUnit(digits, 0xDC00U + ((character - kPlane) & 0x3FFU));
    }
  }
  return digits;
}

std::string pdfText(std::string_view text) {
  return "<FEFF" + pdfUnits(text) + ">";
}

}  // namespace quorvan::tool
