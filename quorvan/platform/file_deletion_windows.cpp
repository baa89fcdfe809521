#include <windows.h>

#include <quorvan/platform/file_deletion.h>

namespace quorvan::platform {

void deleteFile(const wchar_t* path) noexcept {
  ::DeleteFileW(path);
}

}  // namespace quorvan::platform
