#include <tests/xml/embedded/file_faults.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace quorvan::test {

namespace {

using embedded::FileCalls;
using embedded::systemFileCalls;

struct Plan {
  int calls = 0;
  int failFrom = 0;
  int failTo = 0;
  int error = 0;
  int death = 0;
  std::size_t most = SIZE_MAX;
  std::string failing;
  int failingError = 0;
  std::string preceded;
  std::function<void()> action;
};

Plan plan;

// The system's error for the one of that number.
DWORD systemError(int error) noexcept {
  switch (error) {
    case ENOENT:
      return ERROR_FILE_NOT_FOUND;
    case EACCES:
      return ERROR_ACCESS_DENIED;
    case EROFS:
      return ERROR_WRITE_PROTECT;
    case ENOSPC:
      return ERROR_DISK_FULL;
    case EBUSY:
      return ERROR_SHARING_VIOLATION;
    case EMFILE:
    case ENFILE:
      return ERROR_TOO_MANY_OPEN_FILES;
    case ENOMEM:
      return ERROR_NOT_ENOUGH_MEMORY;
    case EINVAL:
      return ERROR_INVALID_FUNCTION;
    case ENOSYS:
    case ENOTSUP:
      return ERROR_NOT_SUPPORTED;
    default:
      return ERROR_IO_DEVICE;
  }
}

// Whether the call is to fail; sets the thread's error then.
bool fails(std::string_view name) noexcept {
  if (name == plan.preceded) {
    plan.action();
  }
  ++plan.calls;
  if (plan.calls == plan.death) {
    ::TerminateProcess(::GetCurrentProcess(), 9);
  }
  if (plan.calls >= plan.failFrom && plan.calls < plan.failTo) {
    ::SetLastError(systemError(plan.error));
    return true;
  }
  if (name == plan.failing) {
    ::SetLastError(systemError(plan.failingError));
    return true;
  }
  return false;
}

DWORD moved(DWORD size) noexcept {
  return static_cast<DWORD>(std::min<std::size_t>(size, plan.most));
}

constexpr FileCalls kFaultyCalls = {
    [](const wchar_t* path, DWORD access, DWORD sharing, DWORD disposition) {
      return fails("open") ? embedded::kNoFile
                           : systemFileCalls().createFile(path, access, sharing, disposition);
    },
    [](HANDLE file, void* buffer, DWORD size, DWORD* count) -> BOOL {
      return fails("read") ? FALSE : systemFileCalls().readFile(file, buffer, moved(size), count);
    },
    [](HANDLE file, const void* bytes, DWORD size, DWORD* count) -> BOOL {
      return fails("write") ? FALSE : systemFileCalls().writeFile(file, bytes, moved(size), count);
    },
    [](HANDLE file, LARGE_INTEGER offset) -> BOOL {
      return fails("lseek") ? FALSE : systemFileCalls().setFilePointer(file, offset);
    },
    [](HANDLE file) -> BOOL {
      return fails("fsync") ? FALSE : systemFileCalls().flushFileBuffers(file);
    },
    [](HANDLE file) -> BOOL {
      // A file that could not be closed is closed all the same.
      const bool failed = fails("close");
      const DWORD error = ::GetLastError();
      const BOOL result = systemFileCalls().closeHandle(file);
      ::SetLastError(error);
      return failed ? FALSE : result;
    },
    [](const wchar_t* from, const wchar_t* to, DWORD flags) -> BOOL {
      return fails("rename") ? FALSE : systemFileCalls().moveFile(from, to, flags);
    },
    [](const wchar_t* path) -> BOOL {
      return fails("unlink") ? FALSE : systemFileCalls().deleteFile(path);
    },
    [](const wchar_t* path) -> DWORD {
      return fails("lstat") ? INVALID_FILE_ATTRIBUTES : systemFileCalls().getFileAttributes(path);
    },
    [](HANDLE file) -> DWORD {
      return fails("fstat") ? FILE_TYPE_UNKNOWN : systemFileCalls().getFileType(file);
    },
    [](HANDLE file, LARGE_INTEGER* size) -> BOOL {
      return fails("fstat") ? FALSE : systemFileCalls().getFileSize(file, size);
    },
};

}  // namespace

FileFaults::FileFaults() {
  plan = Plan();
  embedded::setFileCalls(kFaultyCalls);
}

FileFaults::~FileFaults() {
  embedded::setFileCalls(systemFileCalls());
  plan = Plan();
}

void FileFaults::failAt(int call, int error, bool lasts) noexcept {
  plan.failFrom = plan.calls + call;
  plan.failTo = lasts ? 1 << 30 : plan.failFrom + 1;
  plan.error = error;
}

void FileFaults::dieAt(int call) noexcept {
  plan.death = plan.calls + call;
}

void FileFaults::moveAtMost(std::size_t bytes) noexcept {
  plan.most = bytes;
}

void FileFaults::interrupt() noexcept {}

void FileFaults::failAll(std::string_view name, int error) noexcept {
  plan.failing = name;
  plan.failingError = error;
}

void FileFaults::before(std::string_view name, std::function<void()> action) {
  plan.preceded = name;
  plan.action = std::move(action);
}

int FileFaults::calls() const noexcept {
  return plan.calls;
}

}  // namespace quorvan::test
