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

}  // namespace quorvan::tool
