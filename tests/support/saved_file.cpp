#include <tests/support/saved_file.h>

#include <fstream>

#include <tests/support/known_differences.h>

namespace quorvan::test {

std::string fileBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  std::string bytes(file ? static_cast<std::size_t>(file.tellg()) : 0, '\0');
  file.seekg(0);
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

std::string savedBytes(const std::filesystem::path& path) {
  return withoutKnownDifferences(fileBytes(path));
}

}  // namespace quorvan::test
