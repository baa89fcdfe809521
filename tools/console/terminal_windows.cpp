#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <memory>

#include <quorvan/text/utf8.h>

#include <tools/console/terminal.h>

namespace quorvan::tool {

std::vector<std::string> utf8Arguments(int /*count*/, char** /*arguments*/) {
  struct Free {
    void operator()(LPWSTR* list) const { LocalFree(list); }
  };
  int count = 0;
  const std::unique_ptr<LPWSTR, Free> list(CommandLineToArgvW(GetCommandLineW(), &count));
  std::vector<std::string> texts;
  for (int i = 1; list != nullptr && i < count; ++i) {
    texts.push_back(quorvan::toUtf8(list.get()[i]));
  }
  return texts;
}

void prepareStandardStreams() {
  SetConsoleOutputCP(CP_UTF8);
  static_cast<void>(_setmode(_fileno(stdin), _O_BINARY));
  static_cast<void>(_setmode(_fileno(stdout), _O_BINARY));
  static_cast<void>(_setmode(_fileno(stderr), _O_BINARY));
}

bool errorIsTerminal() {
  return _isatty(_fileno(stderr)) != 0;
}

bool outputIsTerminal() {
  return _isatty(_fileno(stdout)) != 0;
}

}  // namespace quorvan::tool
