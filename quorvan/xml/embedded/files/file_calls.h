// The system calls by which documents are read and written, in one table, so that a test can make
// any of them fail.
#pragma once

#include <quorvan/platform/com_error.h>
#include <quorvan/text/cstring.h>
#ifdef _WIN32
#include <quorvan/xml/embedded/files/file_calls_windows.h>
#else
#include <quorvan/xml/embedded/files/file_calls_posix.h>
#endif

namespace quorvan::embedded {

/// The calls in use: those of the system unless a test has put others in their place.
const FileCalls& fileCalls() noexcept;

/// The calls of the system.
const FileCalls& systemFileCalls() noexcept;

/// Puts other calls in place, for the whole process. They must outlive their use.
void setFileCalls(const FileCalls& calls) noexcept;

/// The HRESULT for an error of the system: an `errno`, on Windows what GetLastError gives.
HRESULT resultOf(int error) noexcept;

/// Raises the HRESULT for an error of the system.
[[noreturn]] void raiseFileError(int error);

/// The path as the system takes it; empty for an empty path and for one that no file can have.
SystemPath systemPath(const CString& path);

}  // namespace quorvan::embedded
