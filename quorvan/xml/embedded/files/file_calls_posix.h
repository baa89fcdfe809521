// The system calls by which documents are read and written where the system is POSIX.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <string>

namespace quorvan::embedded {

/// A path as the system takes it.
using SystemPath = std::string;

/// An open file.
using SystemFile = int;
inline constexpr SystemFile kNoFile = -1;

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

}  // namespace quorvan::embedded
