#include <bench/scratch_file.h>

#include <stdexcept>
#include <string>

#include <windows.h>

namespace bench {

void passScratchFile() {
  static const std::string bytes(553, 'x');
  constexpr const wchar_t* kPath = L"scratch.xml";
  ::DeleteFileW(kPath);
  const HANDLE file = ::CreateFileW(kPath, GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  DWORD count = 0;
  if (file == INVALID_HANDLE_VALUE ||
      ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) == 0 ||
      ::CloseHandle(file) == 0) {
    throw std::runtime_error("a scratch file could not be written");
  }
}

}  // namespace bench
