// The files of a job.
#pragma once

#include <string>
#include <vector>

#include <tools/console/console.h>

namespace quorvan::tool {

/// The files that one argument stands for: a folder for the .xml files in it and in the folders
/// below, a pattern with * or ? in its last part, which a shell may have left alone, for the files
/// that it fits; both by name. A pattern that fits none, and every other name, stands for itself.
/// Raises Unreadable for a folder that cannot be read or has no such file.
std::vector<std::string> filesNamedBy(const std::string& argument);

/// The files that all the arguments stand for. One that is named twice is taken once, and warned of
/// on `console`. Raises Unreadable. A file that does not exist is not looked at here.
std::vector<std::string> drawingFiles(const std::vector<std::string>& names, Console& console);

}  // namespace quorvan::tool
