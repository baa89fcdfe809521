// A run that ends in the middle of its work leaves nothing behind.
#ifndef _WIN32

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include <tools/console/interruption.h>
#include <tools/files/temporary_folder.h>

namespace {

namespace fs = std::filesystem;
using quorvan::tool::TemporaryFolder;

// A process of its own that is stopped in the middle of its work.
void beginWork() {
  const rlimit none = {0, 0};
  ::setrlimit(RLIMIT_CORE, &none);
  quorvan::tool::watchForInterruption();
}

class ToolInterruption : public testing::TestWithParam<int> {};

TEST_P(ToolInterruption, RemovesWhatWasMade) {
  fs::create_directory("work");
  int ready[2] = {};
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    beginWork();
    const TemporaryFolder folder("work");
    std::ofstream(folder.path() / "drawing.xml") << "half of it";
    static_cast<void>(::write(ready[1], "r", 1));
    for (;;) {
      ::pause();
    }
  }
  char byte = 0;
  ASSERT_EQ(::read(ready[0], &byte, 1), 1);
  EXPECT_FALSE(fs::is_empty("work"));
  ::kill(child, GetParam());
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == GetParam());
  EXPECT_TRUE(fs::is_empty("work"));
}

INSTANTIATE_TEST_SUITE_P(Signals, ToolInterruption,
                         testing::Values(SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXCPU, SIGUSR1));

class ToolBrokenOutput : public testing::TestWithParam<int> {};

TEST_P(ToolBrokenOutput, RemovesWhatWasMade) {
  fs::create_directory("work");
  const pid_t child = ::fork();
  if (child == 0) {
    beginWork();
    const TemporaryFolder folder("work");
    std::ofstream(folder.path() / "drawing.xml") << "half of it";
    int output[2] = {-1, -1};
    if (GetParam() == SIGPIPE && ::pipe(output) == 0) {
      ::close(output[0]);
    } else {
      const rlimit none = {0, 0};
      ::setrlimit(RLIMIT_FSIZE, &none);
      output[1] = ::open("work/full", O_CREAT | O_WRONLY, 0600);
      ::unlink("work/full");
    }
    static_cast<void>(::write(output[1], "x", 1));
    ::_exit(0);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == GetParam()) << status;
  EXPECT_TRUE(fs::is_empty("work"));
}

INSTANTIATE_TEST_SUITE_P(Signals, ToolBrokenOutput, testing::Values(SIGPIPE, SIGXFSZ));

TEST(ToolTemporaryFolder, ClearsWhatKilledRunsLeftADayAgo) {
  for (const char* const name : {".quorvan-1", ".quorvan-2", ".quorvan-x", "other"}) {
    fs::create_directories(fs::path("left") / name);
    std::ofstream(fs::path("left") / name / "drawing.xml") << "x";
    if (std::string(name) != ".quorvan-2") {
      fs::last_write_time(fs::path("left") / name,
                          fs::file_time_type::clock::now() - std::chrono::hours(25));
    }
  }
  { const TemporaryFolder folder("left"); }
  EXPECT_FALSE(fs::exists("left/.quorvan-1"));
  EXPECT_TRUE(fs::exists("left/.quorvan-2"));
  EXPECT_TRUE(fs::exists("left/.quorvan-x"));
  EXPECT_TRUE(fs::exists("left/other"));
}

}  // namespace

#endif
