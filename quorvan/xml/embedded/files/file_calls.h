// The system calls by which documents are read and written, in one table, so that a test can make
// any of them fail.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <string>

#include <quorvan/platform/com_error.h>
#include <quorvan/text/cstring.h>

namespace quorvan::embedded {

/// Each works like the POSIX call of its name.
struct FileCalls {
  int (*open)(const char* path, int flags, mode_t mode);
  ssize_t (*read)(int file, void* buffer, std::size_t size);
  ssize_t (*write)(int file, const void* bytes, std::size_t size);
  off_t (*lseek)(int file, off_t offset, int whence);
  int (*fsync)(int file);
  int (*close)(int file);
  int (*rename)(const char* from, const char* to);
  int (*unlink)(const char* path);
  int (*fstat)(int file, struct stat* status);
  int (*lstat)(const char* path, struct stat* status);
  ssize_t (*readlink)(const char* path, char* target, std::size_t size);
  int (*access)(const char* path, int mode);
  int (*flock)(int file, int operation);
  int (*fchmod)(int file, mode_t mode);
  int (*fchown)(int file, uid_t owner, gid_t group);
  int (*fcntl)(int file, int command, int argument);
};

/// The calls in use: those of the system unless a test has put others in their place.
const FileCalls& fileCalls() noexcept;

/// The calls of the system.
const FileCalls& systemFileCalls() noexcept;

/// Puts other calls in place, for the whole process. They must outlive their use.
void setFileCalls(const FileCalls& calls) noexcept;

/// The HRESULT for an `errno`.
HRESULT resultOf(int error) noexcept;

/// Raises the HRESULT for an `errno`.
[[noreturn]] void raiseFileError(int error);

/// The path as the system takes it; empty for an empty path and for one that no file can have.
std::string systemPath(const CString& path);

}  // namespace quorvan::embedded
