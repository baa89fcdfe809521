#include "scratch_copy.h"

#include <random>
#include <string>
#include <system_error>

ScratchCopy::ScratchCopy(const std::filesystem::path& original) {
  std::random_device random;
  const std::string name =
      "drawing-reader-" + std::to_string(random()) + "-" + std::to_string(random()) + ".xml";
  m_path = std::filesystem::temp_directory_path() / name;
  std::filesystem::copy_file(original, m_path);
}

ScratchCopy::~ScratchCopy() {
  std::error_code ignored;
  std::filesystem::remove(m_path, ignored);
}
