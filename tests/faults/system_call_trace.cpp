#include <tests/faults/system_call_trace.h>

#include <signal.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace quorvan::test {

namespace {

constexpr int kCallStop = SIGTRAP | 0x80;  // as PTRACE_O_TRACESYSGOOD marks it

// The text at that address of the other process.
std::string textAt(pid_t process, std::uint64_t address) {
  std::string text;
  std::array<char, 64> part{};
  for (;;) {
    // Up to the end of a page, so that what lies behind it need not be there.
    constexpr std::uint64_t kPage = 4096;
    const std::uint64_t left = kPage - address % kPage;
    iovec here = {part.data(), std::min<std::uint64_t>(part.size(), left)};
    // NOLINTNEXTLINE(performance-no-int-to-ptr): an address of another process
    iovec there = {reinterpret_cast<void*>(address), here.iov_len};
    const ssize_t count = ::process_vm_readv(process, &here, 1, &there, 1, 0);
    if (count <= 0) {
      return text + "(unreadable)";
    }
    const std::string_view read(part.data(), static_cast<std::size_t>(count));
    const std::size_t end = read.find('\0');
    text += read.substr(0, end);
    if (end != std::string_view::npos) {
      return text;
    }
    address += static_cast<std::uint64_t>(count);
  }
}

// Which argument of the call is a path: its place, or -1.
int pathArgument(std::uint64_t call) {
  switch (call) {
    case SYS_openat:
    case SYS_unlinkat:
    case SYS_renameat:
    case SYS_renameat2:
    case SYS_newfstatat:
    case SYS_faccessat:
    case SYS_readlinkat:
    case SYS_statx:
      return 1;
    case SYS_execve:
#ifdef SYS_open
    case SYS_open:
    case SYS_creat:
    case SYS_stat:
    case SYS_lstat:
    case SYS_access:
    case SYS_readlink:
    case SYS_rename:
    case SYS_unlink:
#endif
      return 0;
    default:
      return -1;
  }
}

SystemCall describe(pid_t process, const __ptrace_syscall_info& info) {
  SystemCall call{static_cast<long>(info.entry.nr), {}};
  const int place = pathArgument(info.entry.nr);
  if (place >= 0) {
    call.path = textAt(process, info.entry.args[place]);
  }
  return call;
}

}  // namespace

SystemCallTrace systemCallsOf(const std::function<void()>& action) {
  SystemCallTrace trace;
  const pid_t child = ::fork();
  if (child == 0) {
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
      ::_exit(1);
    }
    ::raise(SIGSTOP);
    action();
    ::_exit(0);
  }
  int status = 0;
  if (::waitpid(child, &status, 0) != child || !WIFSTOPPED(status)) {
    return trace;
  }
  ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
  int signal = 0;
  for (;;) {
    if (::ptrace(PTRACE_SYSCALL, child, nullptr, signal) != 0 ||
        ::waitpid(child, &status, 0) != child) {
      return trace;
    }
    if (!WIFSTOPPED(status)) {
      trace.isComplete = WIFEXITED(status) && WEXITSTATUS(status) == 0;
      return trace;
    }
    signal = WSTOPSIG(status) == kCallStop ? 0 : WSTOPSIG(status);
    __ptrace_syscall_info info = {};
    if (signal == 0 && ::ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof info, &info) > 0 &&
        info.op == PTRACE_SYSCALL_INFO_ENTRY) {
      trace.calls.push_back(describe(child, info));
    }
  }
}

}  // namespace quorvan::test
