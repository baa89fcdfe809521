#include <unistd.h>

#include <cerrno>
#include <exception>

#include <quorvan/platform/file_deletion.h>
#include <quorvan/text/utf8.h>

namespace quorvan::platform {

bool deleteFile(const wchar_t* path) noexcept {
  if (path == nullptr) {
    return false;
  }
  try {
    return ::unlink(toUtf8(path).c_str()) == 0 || errno == ENOENT;
  } catch (const std::exception&) {
    return false;  // like any other file that could not be deleted
  }
}

}  // namespace quorvan::platform
