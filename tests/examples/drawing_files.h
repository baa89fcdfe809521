// The drawings under examples/drawings, as JSON and written by the program.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace quorvan::test {

nlohmann::json exampleJson(const std::string& name);

/// Writes the drawing into the current folder and gives the file's name.
std::string writeExample(const std::string& name);

std::string goldenPath(const std::string& name);

}  // namespace quorvan::test
