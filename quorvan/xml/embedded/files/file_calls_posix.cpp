#include <quorvan/xml/embedded/files/file_calls.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include <quorvan/text/utf8.h>

namespace quorvan::embedded {

namespace {

constexpr FileCalls kSystemCalls = {
    [](const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); },
    ::read,
    ::write,
    ::lseek,
    ::fsync,
    ::close,
    ::rename,
    ::unlink,
    [](int file, struct stat* status) { return ::fstat(file, status); },
    [](const char* path, struct stat* status) { return ::lstat(path, status); },
    ::readlink,
    ::access,
    ::flock,
    ::fchmod,
    ::fchown,
    [](int file, int command, int argument) { return ::fcntl(file, command, argument); },
};

const FileCalls* callsInUse = &kSystemCalls;

// HRESULTs of the system errors of these numbers.
constexpr HRESULT kPathNotFound = static_cast<HRESULT>(0x80070003U);
constexpr HRESULT kSharingViolation = static_cast<HRESULT>(0x80070020U);
constexpr HRESULT kDiskFull = static_cast<HRESULT>(0x80070070U);

}  // namespace

const FileCalls& fileCalls() noexcept {
  return *callsInUse;
}

const FileCalls& systemFileCalls() noexcept {
  return kSystemCalls;
}

void setFileCalls(const FileCalls& calls) noexcept {
  callsInUse = &calls;
}

HRESULT resultOf(int error) noexcept {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return kPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
      return E_ACCESSDENIED;
    case ENOSPC:
    case EDQUOT:
      return kDiskFull;
    case EBUSY:
    case ETXTBSY:
    case EWOULDBLOCK:
      return kSharingViolation;
    case ENOMEM:
      return E_OUTOFMEMORY;
    default:
      return E_FAIL;
  }
}

void raiseFileError(int error) {
  platform::raiseComError(resultOf(error));
}

SystemPath systemPath(const CString& path) {
  SystemPath bytes = toUtf8(path.view());
  return bytes.find('\0') == std::string::npos ? bytes : SystemPath();
}

}  // namespace quorvan::embedded
