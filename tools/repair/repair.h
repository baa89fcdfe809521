// Mends transfer files.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <tools/check/checker.h>

namespace quorvan::tool {

/// The bytes of a file with all that can be mended in it put right; what cannot, and whatever no
/// finding is about, stands as it stood. `scratch` is a file to work in. Raises Failure, and
/// NotWellFormed for a file that cannot be read.
std::string repairedBytes(const InputFile& input, const StandardSizes& sizes,
                          const std::filesystem::path& scratch, Console& console);

}  // namespace quorvan::tool
