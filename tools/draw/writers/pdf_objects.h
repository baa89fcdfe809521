// The objects of a PDF, which the file keeps.
//
// qpdf's interface in C is used: the headers of that in C++, as Debian 12 has them, are none of
// C++20 to clang. What fails is kept by the file until it is asked.
#pragma once

#include <qpdf/qpdf-c.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace quorvan::tool {

/// A dictionary: what is the same in each such, as a PDF has it ("<</Type/Page>>"), and further
/// entries.
qpdf_oh pdfDictionary(qpdf_data file, const char* text,
                      std::initializer_list<std::pair<const char*, qpdf_oh>> entries);

/// A stream of these bytes, which are copied, and packed when the file is written.
qpdf_oh pdfStream(qpdf_data file, std::string_view bytes);

/// A name without its slash.
qpdf_oh pdfName(qpdf_data file, const std::string& name);

}  // namespace quorvan::tool
