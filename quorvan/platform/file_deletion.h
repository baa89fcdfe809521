// Deleting a file by its wide path.
#pragma once

namespace quorvan::platform {

/// Deletes the file (DeleteFileW). Whether there is none of that name any more; no error is raised.
bool deleteFile(const wchar_t* path) noexcept;

}  // namespace quorvan::platform
