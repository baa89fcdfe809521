// Runs an example program as a user would.
#pragma once

#include <string>
#include <vector>

namespace quorvan::test {

// Where what the program says goes, in the current folder; on Windows it goes nowhere.
inline constexpr const char* kOutput = "output.txt";
inline constexpr const char* kErrors = "errors.txt";

/// Runs the command in the current folder. Its exit code; -1 for one that did not end by itself.
int runProgram(const std::vector<std::string>& command);

/// The folder of a test that changes it, for as long as this lives; emptied before.
class OwnFolder {
 public:
  explicit OwnFolder(const std::string& name);
  OwnFolder(const OwnFolder&) = delete;
  OwnFolder& operator=(const OwnFolder&) = delete;
  ~OwnFolder();

 private:
  std::string m_before;
};

}  // namespace quorvan::test
