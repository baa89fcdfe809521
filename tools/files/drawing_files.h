// The files of a job.
#pragma once

#include <string>
#include <vector>

#include <tools/console/console.h>

namespace quorvan::tool {

/// The files that the names stand for: folders stand for the .xml files in them and in the folders
/// below, by name. A file that is named twice is taken once, and warned of on `console`. Raises
/// Failure for a folder that cannot be read or has no such file. A file that does not exist is not
/// looked at here.
std::vector<std::string> drawingFiles(const std::vector<std::string>& names, Console& console);

}  // namespace quorvan::tool
