// The sources in which readers have a type for each element class. That part of them is made.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <tools/readers/reader_classes.h>

namespace quorvan::tool {

/// A source with the parts between its marks, see withMadeParts().
struct ReaderSource {
  std::string_view path;  // below the folder of the project
  std::vector<std::string> (*makeParts)(const ReaderClasses& classes);
};

/// One for each language.
std::span<const ReaderSource> readerSources();

}  // namespace quorvan::tool
