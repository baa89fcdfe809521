// What is made of the classes in each language.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <tools/readers/reader_classes.h>

namespace quorvan::tool {

/// Characters of a line.
inline constexpr std::size_t kSourceColumns = 100;

/// Structs, their variant, and a walk over the items of each.
std::vector<std::string> cppParts(const ReaderClasses& classes);

/// Dataclasses, and the names under which the file has them.
std::vector<std::string> pythonParts(const ReaderClasses& classes);

/// Classes, and the names under which the file has them.
std::vector<std::string> csharpParts(const ReaderClasses& classes);

/// Classes; the names under which the file has them, and a visit to the items of each.
std::vector<std::string> pascalParts(const ReaderClasses& classes);

}  // namespace quorvan::tool
