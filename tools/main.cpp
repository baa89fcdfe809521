#include <iostream>

#include <tools/console/interruption.h>
#include <tools/console/terminal.h>
#include <tools/program.h>

int main(int argc, char** argv) {
  using namespace quorvan::tool;  // NOLINT(google-build-using-namespace)
  prepareStandardStreams();
  watchForInterruption();
  std::ios::sync_with_stdio(false);
  Console console{std::cout, std::cerr, errorIsTerminal(), outputIsTerminal()};
  const int status = runProgram(utf8Arguments(argc, argv), console);
  std::cout.flush();
  if (!std::cout) {
    std::cerr << "quorvan: the output cannot be written\n";
    return kFailure;
  }
  return status;
}
