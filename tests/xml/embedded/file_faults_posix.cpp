#include <tests/xml/embedded/file_faults.h>

#include <unistd.h>

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
  bool isInterrupted = false;
  bool wasInterrupted = false;
  std::string failing;
  int failingError = 0;
  std::string preceded;
  std::function<void()> action;
};

Plan plan;

// Whether the call is to fail; sets errno then.
bool fails(std::string_view name) noexcept {
  if (name == plan.preceded) {
    plan.action();
  }
  ++plan.calls;
  if (plan.calls == plan.death) {
    ::_exit(0);
  }
  if (plan.calls >= plan.failFrom && plan.calls < plan.failTo) {
    errno = plan.error;
    return true;
  }
  if (name == plan.failing) {
    errno = plan.failingError;
    return true;
  }
  return false;
}

bool isInterruptedNow() noexcept {
  if (!plan.isInterrupted) {
    return false;
  }
  plan.wasInterrupted = !plan.wasInterrupted;
  if (plan.wasInterrupted) {
    errno = EINTR;
  }
  return plan.wasInterrupted;
}

std::size_t moved(std::size_t size) noexcept {
  return std::min(size, plan.most);
}

constexpr FileCalls kFaultyCalls = {
    [](const char* path, int flags, mode_t mode) {
      return fails("open") || isInterruptedNow() ? -1 : systemFileCalls().open(path, flags, mode);
    },
    [](int file, void* buffer, std::size_t size) -> ssize_t {
      return fails("read") || isInterruptedNow()
                 ? -1
                 : systemFileCalls().read(file, buffer, moved(size));
    },
    [](int file, const void* bytes, std::size_t size) -> ssize_t {
      return fails("write") || isInterruptedNow()
                 ? -1
                 : systemFileCalls().write(file, bytes, moved(size));
    },
    [](int file, off_t offset, int whence) -> off_t {
      return fails("lseek") ? -1 : systemFileCalls().lseek(file, offset, whence);
    },
    [](int file) {
      return fails("fsync") || isInterruptedNow() ? -1 : systemFileCalls().fsync(file);
    },
    [](int file) {
      // A file that could not be closed is closed all the same.
      const bool failed = fails("close");
      const int error = errno;
      const int result = systemFileCalls().close(file);
      if (failed) {
        errno = error;
      }
      return failed ? -1 : result;
    },
    [](const char* from, const char* to) {
      return fails("rename") ? -1 : systemFileCalls().rename(from, to);
    },
    [](const char* path) { return fails("unlink") ? -1 : systemFileCalls().unlink(path); },
    [](int file, struct stat* status) {
      return fails("fstat") ? -1 : systemFileCalls().fstat(file, status);
    },
    [](const char* path, struct stat* status) {
      return fails("lstat") ? -1 : systemFileCalls().lstat(path, status);
    },
    [](const char* path, char* target, std::size_t size) -> ssize_t {
      return fails("readlink") ? -1 : systemFileCalls().readlink(path, target, size);
    },
    [](const char* path, int mode) {
      return fails("access") ? -1 : systemFileCalls().access(path, mode);
    },
    [](int file, int operation) {
      return fails("flock") || isInterruptedNow() ? -1 : systemFileCalls().flock(file, operation);
    },
    [](int file, mode_t mode) {
      return fails("fchmod") ? -1 : systemFileCalls().fchmod(file, mode);
    },
    [](int file, uid_t owner, gid_t group) {
      return fails("fchown") ? -1 : systemFileCalls().fchown(file, owner, group);
    },
    [](int file, int command, int argument) {
      return fails("fcntl") ? -1 : systemFileCalls().fcntl(file, command, argument);
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

void FileFaults::interrupt() noexcept {
  plan.isInterrupted = true;
}

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
