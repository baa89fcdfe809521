#include <windows.h>

#include <quorvan/platform/file_deletion.h>

namespace quorvan::platform {

bool deleteFile(const wchar_t* path) noexcept {
  return ::DeleteFileW(path) != 0 || ::GetLastError() == ERROR_FILE_NOT_FOUND;
}

}  // namespace quorvan::platform
