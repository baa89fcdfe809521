#include <sys/stat.h>
#include <unistd.h>

#include <tools/console/terminal.h>

namespace quorvan::tool {

std::vector<std::string> utf8Arguments(int count, char** arguments) {
  return {arguments + (count > 0 ? 1 : 0), arguments + count};
}

void prepareStandardStreams() {}

bool errorIsTerminal() {
  return isatty(STDERR_FILENO) == 1;
}

bool outputIsTerminal() {
  return isatty(STDOUT_FILENO) == 1;
}

bool inputIsFile(const std::filesystem::path& path) {
  struct stat input = {};
  struct stat file = {};
  return fstat(STDIN_FILENO, &input) == 0 && stat(path.c_str(), &file) == 0 &&
         S_ISREG(input.st_mode) && input.st_dev == file.st_dev && input.st_ino == file.st_ino;
}

}  // namespace quorvan::tool
