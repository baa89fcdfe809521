// Deleting a file by its wide path.
#pragma once

namespace quorvan::platform {

/// Deletes the file (DeleteFileW); whether there was one, and every error, is ignored.
void deleteFile(const wchar_t* path) noexcept;

}  // namespace quorvan::platform
