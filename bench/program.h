// What the commands of the program cost beside the library's own reading of the file.
#pragma once

#include <string>
#include <vector>

#include <bench/report.h>

namespace bench {

/// Lets the library read a drawing of a job with so many elements, each class to its last element,
/// and then each command do its work on it, in turn, each in a process of its own, `rounds` times.
/// `program` is the path of the program. Raises std::runtime_error.
std::vector<ProgramRow> measureProgram(const std::string& program, std::size_t elements, int rounds,
                                       const std::string& folder);

}  // namespace bench
