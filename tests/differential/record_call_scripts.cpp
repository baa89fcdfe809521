// record_call_scripts FOLDER: runs the scripts and keeps what each did, for a build with another
// document service to compare with.

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include <tests/differential/call_script.h>

namespace fs = std::filesystem;

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: record_call_scripts FOLDER\n";
    return 2;
  }
  try {
    const fs::path records = fs::absolute(argv[1]);
    const fs::path working = records / "working";
    fs::remove_all(records);
    fs::create_directories(working);
    fs::current_path(working);
    for (int seed = 0; seed < quorvan::test::callScriptCount(); ++seed) {
      std::ofstream(records / std::to_string(seed), std::ios::binary)
          << quorvan::test::runCallScript(static_cast<std::uint64_t>(seed));
    }
    fs::current_path(records);
    fs::remove_all(working);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
