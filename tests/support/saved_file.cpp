#include <tests/support/saved_file.h>

#include <fstream>
#include <iterator>

#include <tests/support/known_differences.h>

namespace quorvan::test {

std::string fileBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string savedBytes(const std::filesystem::path& path) {
  return withoutKnownDifferences(fileBytes(path));
}

}  // namespace quorvan::test
