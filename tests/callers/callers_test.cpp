// Programs of other languages that load the library at run time: each writes the same drawing.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tests/support/saved_file.h>

#ifdef _WIN32
#include <process.h>
#else
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace quorvan::test {
namespace {

int run(const std::vector<const char*>& command) {
  std::vector<const char*> arguments = command;
  arguments.push_back(nullptr);
#ifdef _WIN32
  return static_cast<int>(_spawnv(_P_WAIT, arguments.front(), arguments.data()));
#else
  const pid_t child = fork();
  if (child == 0) {
    execv(arguments.front(), const_cast<char* const*>(arguments.data()));
    _exit(127);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
}

std::string beam() {
  return fileBytes(QUORVAN_TEST_DATA "/callers/beam.xml");
}

TEST(Callers, PlainCWritesTheDrawing) {
  ASSERT_EQ(run({QUORVAN_WRITE_DRAWING, QUORVAN_LIBRARY, "c.xml"}), 0);
  EXPECT_EQ(savedBytes("c.xml"), beam());
}

TEST(Callers, PlainCNamesALibraryThatIsNotThere) {
  EXPECT_EQ(run({QUORVAN_WRITE_DRAWING, "./no-such-library", "none.xml"}), 1);
  EXPECT_EQ(fileBytes("none.xml"), "");
}

#ifndef _WIN32
TEST(Callers, PythonWritesTheDrawing) {
  ASSERT_EQ(run({QUORVAN_PYTHON, QUORVAN_WRITE_DRAWING_PY, QUORVAN_LIBRARY, "python.xml"}), 0);
  EXPECT_EQ(savedBytes("python.xml"), beam());
}
#endif

#ifdef QUORVAN_WRITE_DRAWING_CSHARP
TEST(Callers, CSharpWritesTheDrawing) {
  ASSERT_EQ(run({"/usr/bin/env", QUORVAN_LIBRARY_PATH, QUORVAN_CSHARP_RUNTIME,
                 QUORVAN_WRITE_DRAWING_CSHARP, "csharp.xml"}),
            0);
  EXPECT_EQ(savedBytes("csharp.xml"), beam());
}
#endif

}  // namespace
}  // namespace quorvan::test
