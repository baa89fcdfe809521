#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <memory>
#include <optional>

#include <quorvan/text/utf8.h>

#include <tools/console/terminal.h>

namespace quorvan::tool {

namespace {

struct CloseHandle {
  void operator()(HANDLE handle) const { ::CloseHandle(handle); }
};

// What tells one file from all others, where the handle is one of a file.
std::optional<BY_HANDLE_FILE_INFORMATION> identityOf(HANDLE handle) {
  BY_HANDLE_FILE_INFORMATION identity = {};
  if (GetFileType(handle) != FILE_TYPE_DISK || !GetFileInformationByHandle(handle, &identity)) {
    return std::nullopt;
  }
  return identity;
}

}  // namespace

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

bool inputIsFile(const std::filesystem::path& path) {
  constexpr DWORD kSharedByAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE opened =
      CreateFileW(path.c_str(), 0, kSharedByAll, nullptr, OPEN_EXISTING, 0, nullptr);
  if (opened == INVALID_HANDLE_VALUE) {
    return false;
  }
  const std::unique_ptr<void, CloseHandle> closed(opened);
  const auto file = identityOf(opened);
  const auto input = identityOf(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stdin))));
  return file && input && file->dwVolumeSerialNumber == input->dwVolumeSerialNumber &&
         file->nFileIndexHigh == input->nFileIndexHigh &&
         file->nFileIndexLow == input->nFileIndexLow;
}

}  // namespace quorvan::tool
