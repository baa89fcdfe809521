#include <tests/callers/run_program.h>

#include <filesystem>

#ifdef _WIN32
#include <process.h>
#else
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace quorvan::test {

#ifndef _WIN32
namespace {

void sendTo(int stream, const char* file) {
  const int opened = open(file, O_WRONLY | O_CREAT | O_TRUNC, 0600);
  dup2(opened, stream);
}

}  // namespace
#endif

int runProgram(const std::vector<std::string>& command) {
  std::vector<const char*> arguments;
  for (const std::string& argument : command) {
    arguments.push_back(argument.c_str());
  }
  arguments.push_back(nullptr);
#ifdef _WIN32
  return static_cast<int>(_spawnv(_P_WAIT, arguments.front(), arguments.data()));
#else
  const pid_t child = fork();
  if (child == 0) {
    sendTo(STDOUT_FILENO, kOutput);
    sendTo(STDERR_FILENO, kErrors);
    execv(arguments.front(), const_cast<char* const*>(arguments.data()));
    _exit(127);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
}

OwnFolder::OwnFolder(const std::string& name) : m_before(std::filesystem::current_path().string()) {
  std::filesystem::remove_all(name);
  std::filesystem::create_directory(name);
  std::filesystem::current_path(name);
}

OwnFolder::~OwnFolder() {
  std::error_code ignored;
  std::filesystem::current_path(m_before, ignored);
}

}  // namespace quorvan::test
