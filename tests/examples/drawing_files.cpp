#include <tests/examples/drawing_files.h>

#include <gtest/gtest.h>

#include <fstream>

#include <tests/support/test_data.h>
#include <tests/tools/tool_run.h>

namespace quorvan::test {

namespace {

std::string jsonPath(const std::string& name) {
  return dataPath("../examples/drawings/") + name + ".json";
}

}  // namespace

nlohmann::json exampleJson(const std::string& name) {
  std::ifstream file(jsonPath(name), std::ios::binary);
  return nlohmann::json::parse(file);
}

std::string writeExample(const std::string& name) {
  std::string path = name + ".xml";
  EXPECT_EQ(runTool({"write", jsonPath(name), "-o", path}).err, "");
  return path;
}

std::string goldenPath(const std::string& name) {
  return dataPath("examples/golden/") + name;
}

}  // namespace quorvan::test
