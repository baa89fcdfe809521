// A drawing as a job has it, for the program: bars of a mark are alike, and series repeat them.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

/// Writes the file in the form in which the library files it: lines, circles, texts, polygons,
/// straight, L- and U-shaped bars, stirrups, frames and repartitions. The same file for the same
/// number of elements.
void writeJobDrawing(std::size_t elements, const std::string& path);

}  // namespace bench
