#include <tools/console/terminal.h>

namespace quorvan::tool {

std::filesystem::path toPath(std::string_view utf8) {
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string toUtf8(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace quorvan::tool
