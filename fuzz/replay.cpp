// Runs a fuzz target on the files of its corpus, without a fuzzer: each as it is and cut short at
// several places. Arguments: files or folders.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include <fuzz/target.h>

namespace {

void run(const std::string& bytes, std::size_t size) {
  // A copy of just that size, so that a sanitizer sees what goes beyond it.
  const std::vector<std::uint8_t> data(bytes.begin(),
                                       bytes.begin() + static_cast<std::ptrdiff_t>(size));
  LLVMFuzzerTestOneInput(data.data(), data.size());
}

void replay(const std::filesystem::path& path) {
  constexpr std::size_t kCuts = 16;
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  for (std::size_t cut = 0; cut <= kCuts; ++cut) {
    run(bytes, bytes.size() * cut / kCuts);
  }
}

}  // namespace

int main(int argc, char** argv) {
  int files = 0;
  for (int i = 1; i < argc; ++i) {
    if (!std::filesystem::is_directory(argv[i])) {
      replay(argv[i]);
      ++files;
      continue;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[i])) {
      if (entry.is_regular_file()) {
        replay(entry.path());
        ++files;
      }
    }
  }
  std::cout << files << " inputs\n";
  return files == 0 ? 1 : 0;
}
