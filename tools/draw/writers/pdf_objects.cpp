#include <tools/draw/writers/pdf_objects.h>

namespace quorvan::tool {

qpdf_oh pdfDictionary(qpdf_data file, const char* text,
                      std::initializer_list<std::pair<const char*, qpdf_oh>> entries) {
  const qpdf_oh dictionary = qpdf_oh_parse(file, text);
  for (const auto& [key, value] : entries) {
    qpdf_oh_replace_key(file, dictionary, key, value);
  }
  return dictionary;
}

qpdf_oh pdfStream(qpdf_data file, std::string_view bytes) {
  const qpdf_oh stream = qpdf_oh_new_stream(file);
  const qpdf_oh none = qpdf_oh_new_null(file);
  qpdf_oh_replace_stream_data(file, stream, reinterpret_cast<const unsigned char*>(bytes.data()),
                              bytes.size(), none, none);
  return stream;
}

qpdf_oh pdfName(qpdf_data file, const std::string& name) {
  return qpdf_oh_new_name(file, ("/" + name).c_str());
}

}  // namespace quorvan::tool
