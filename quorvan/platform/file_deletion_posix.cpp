#include <unistd.h>

#include <exception>

#include <quorvan/platform/file_deletion.h>
#include <quorvan/text/utf8.h>

namespace quorvan::platform {

void deleteFile(const wchar_t* path) noexcept {
  if (path == nullptr) {
    return;
  }
  try {
    ::unlink(toUtf8(path).c_str());
  } catch (const std::exception&) {
    // Not deleted, like any other file that could not be.
  }
}

}  // namespace quorvan::platform
