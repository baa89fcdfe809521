// What opening, reading and saving a hostile file asks of the system, seen from outside.
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include <tests/faults/hostile_files.h>
#include <tests/faults/system_call_trace.h>
#include <tests/support/read_everything.h>
#include <tests/support/saved_file.h>
#include <quorvan/platform/com_error.h>

namespace quorvan::test {
namespace {

using namespace std::string_literals;

void openReadAndSave(const CString& path) {
  CKtFiler filer;
  if (filer.newFiler(path) != 1) {
    return;
  }
  readsEverything(filer, 2);
  try {
    filer.closeFiler();
  } catch (const _com_error&) {  // NOLINT(bugprone-empty-catch): what cannot be saved is not asked
  }
}

// What the library has to do with files of that name, its folder, memory and the process's end.
// Everything else, sockets and new processes before all, is not its business.
bool isExpected(const SystemCall& call, const std::set<std::string>& paths) {
  switch (call.number) {
    case SYS_read:
    case SYS_write:
    case SYS_lseek:
    case SYS_close:
    case SYS_fstat:
    case SYS_flock:
    case SYS_fsync:
    case SYS_fchmod:
    case SYS_fchown:
    case SYS_mmap:
    case SYS_munmap:
    case SYS_mremap:
    case SYS_mprotect:
    case SYS_madvise:
    case SYS_brk:
    case SYS_futex:
    case SYS_getpid:
    case SYS_getrandom:
    case SYS_sigaltstack:  // a sanitizer that ends
    case SYS_pipe2:        // one that asks whether an address can be read
    case SYS_exit_group:
      return true;
    default:
      return call.path.has_value() && paths.count(*call.path) != 0;
  }
}

// Opens, reads and saves the file under watch, and reports every call that is not expected.
void expectNothingElseIsTouched(const std::string& path) {
  SCOPED_TRACE(path);
  const CString name(path.c_str());
  const SystemCallTrace trace = systemCallsOf([&] { openReadAndSave(name); });
  ASSERT_TRUE(trace.isComplete) << "the process could not be watched, or did not end by itself";
  // An empty path stands for a file that is open already.
  const std::set<std::string> paths = {path, "." + path + ".quorvan-new", ".", ""};
  EXPECT_TRUE(std::any_of(trace.calls.begin(), trace.calls.end(),
                          [&](const SystemCall& call) { return call.path == path; }));
  for (const SystemCall& call : trace.calls) {
    EXPECT_TRUE(isExpected(call, paths)) << "call " << call.number << ' ' << call.path.value_or("");
  }
}

TEST(HostileTrace, NothingIsOpenedOrConnectedBesideTheFile) {
  std::ofstream("secret.txt") << "secret";
  const std::string here = std::filesystem::current_path().string();
  for (const std::string& where :
       {"secret.txt"s, here + "/secret.txt", "file://" + here + "/secret.txt",
        "http://127.0.0.1:9/secret.txt"s, "ftp://127.0.0.1:9/secret.txt"s,
        "//127.0.0.1/share/secret.txt"s, "/dev/stdin"s}) {
    for (const std::string& content : filesThatName(where)) {
      SCOPED_TRACE(content);
      std::ofstream("hostile.xml", std::ios::binary | std::ios::trunc) << content;
      expectNothingElseIsTouched("hostile.xml");
      EXPECT_EQ(fileBytes("hostile.xml").find(">secret<"), std::string::npos);
    }
  }
}

TEST(HostileTrace, NothingIsOpenedOrConnectedWhateverTheFileHolds) {
  for (const HostileFile& hostile : hostileFiles()) {
    SCOPED_TRACE(hostile.name);
    hostile.write("hostile.xml", std::min<std::size_t>(hostile.size, 20'000));
    expectNothingElseIsTouched("hostile.xml");
  }
}

// The watch sees what it is there for.
TEST(HostileTrace, ShowsWhatIsOpenedAndConnected) {
  const SystemCallTrace trace = systemCallsOf([] {
    std::ifstream("elsewhere.xml").get();
    ::syscall(SYS_socket, 0, 0, 0);
  });
  ASSERT_TRUE(trace.isComplete);
  int unexpected = 0;
  for (const SystemCall& call : trace.calls) {
    unexpected += isExpected(call, {"hostile.xml"}) ? 0 : 1;
  }
  EXPECT_EQ(unexpected, 2);
}

}  // namespace
}  // namespace quorvan::test
