// Where golden files and samples lie.
#pragma once

#include <string>
#include <string_view>

namespace quorvan::test {

/// The path of a file below tests/, "export/golden/small_drawing.xml". Only this one place of all
/// tests depends on where the sources are.
std::string dataPath(std::string_view name);

}  // namespace quorvan::test
