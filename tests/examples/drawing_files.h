// The drawings under examples/drawings, as JSON and written by the example host.
#pragma once

#include <examples/host/drawing.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <fstream>
#include <string>

#include <tests/support/test_data.h>

namespace quorvan::test {

inline nlohmann::json exampleJson(const std::string& name) {
  std::ifstream file(quorvan::test::dataPath("../examples/drawings/") + name + ".json",
                     std::ios::binary);
  return nlohmann::json::parse(file);
}

/// Writes the drawing into the current folder and gives the file's name.
inline std::string writeExample(const std::string& name) {
  const std::string path = name + ".xml";
  writeDrawing(readDrawing(exampleJson(name)), path);
  return path;
}

inline std::string goldenPath(const std::string& name) {
  return quorvan::test::dataPath("examples/golden/") + name;
}

}  // namespace quorvan::test
