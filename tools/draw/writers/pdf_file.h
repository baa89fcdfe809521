// The objects of a PDF, put together.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorvan::tool {

/// Numbers objects, and says in the end where each of them stands.
class PdfFile {
 public:
  PdfFile();

  /// The number of an object that is put in later.
  std::size_t reserve();

  /// Puts an object in.
  void put(std::size_t number, std::string_view body);
  std::size_t put(std::string_view body);

  /// Puts in a stream of these bytes, which are packed. `entries` are further ones of its
  /// dictionary.
  void putStream(std::size_t number, std::string_view bytes, std::string_view entries = {});
  std::size_t putStream(std::string_view bytes, std::string_view entries = {});

  /// Ends the file, and hands it over. All numbers have their objects by then.
  std::string finish(std::size_t catalog, std::size_t information);

 private:
  std::string m_bytes;
  std::vector<std::size_t> m_places;  // of the objects, from the first
};

/// A reference to an object: "12 0 R".
std::string pdfReference(std::size_t number);

/// A number of 16 bits as four hexadecimal digits.
void appendPdfUnit(std::string& digits, char32_t unit);

/// A text in UTF-8 as UTF-16 in hexadecimal digits.
std::string pdfUnits(std::string_view text);

/// The same as a string of its own, which begins with the mark of its encoding.
std::string pdfText(std::string_view text);

}  // namespace quorvan::tool
