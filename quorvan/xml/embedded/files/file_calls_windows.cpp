#include <cstddef>

#include <quorvan/xml/embedded/files/file_calls.h>

namespace quorvan::embedded {

namespace {

constexpr FileCalls kSystemCalls = {
    [](const wchar_t* path, DWORD access, DWORD sharing, DWORD disposition) -> HANDLE {
      const DWORD passing = (access & DELETE) != 0 ? FILE_FLAG_DELETE_ON_CLOSE : 0;
      const HANDLE file = ::CreateFileW(path, access, sharing, nullptr, disposition,
                                        FILE_ATTRIBUTE_NORMAL | passing, nullptr);
      return file == INVALID_HANDLE_VALUE ? kNoFile : file;
    },
    [](HANDLE file, void* buffer, DWORD size, DWORD* moved) {
      return ::ReadFile(file, buffer, size, moved, nullptr);
    },
    [](HANDLE file, const void* bytes, DWORD size, DWORD* moved) {
      return ::WriteFile(file, bytes, size, moved, nullptr);
    },
    [](HANDLE file, LARGE_INTEGER offset) {
      return ::SetFilePointerEx(file, offset, nullptr, FILE_BEGIN);
    },
    [](HANDLE file) { return ::FlushFileBuffers(file); },
    [](HANDLE file) { return ::CloseHandle(file); },
    [](const wchar_t* from, const wchar_t* to, DWORD flags) {
      return ::MoveFileExW(from, to, flags);
    },
    [](const wchar_t* path) { return ::DeleteFileW(path); },
    [](const wchar_t* path) { return ::GetFileAttributesW(path); },
    [](HANDLE file) { return ::GetFileType(file); },
    [](HANDLE file, LARGE_INTEGER* size) { return ::GetFileSizeEx(file, size); },
};

const FileCalls* callsInUse = &kSystemCalls;

// Names of this length and more the system takes only with a prefix that turns its rules off.
constexpr std::size_t kLongPath = MAX_PATH - 12;

}  // namespace

const FileCalls& fileCalls() noexcept {
  return *callsInUse;
}

const FileCalls& systemFileCalls() noexcept {
  return kSystemCalls;
}

void setFileCalls(const FileCalls& calls) noexcept {
  callsInUse = &calls;
}

// One result for what the callers of every system are told alike.
HRESULT resultOf(int error) noexcept {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND);
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
      return E_ACCESSDENIED;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return HRESULT_FROM_WIN32(ERROR_DISK_FULL);
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
      return HRESULT_FROM_WIN32(ERROR_SHARING_VIOLATION);
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return E_OUTOFMEMORY;
    default:
      return E_FAIL;
  }
}

void raiseFileError(int error) {
  platform::raiseComError(resultOf(error));
}

SystemPath systemPath(const CString& path) {
  const std::wstring given(path.view());
  if (given.empty() || given.find(L'\0') != std::wstring::npos) {
    return {};
  }
  const DWORD needed = ::GetFullPathNameW(given.c_str(), 0, nullptr, nullptr);
  std::wstring full(needed, L'\0');
  const DWORD length = ::GetFullPathNameW(given.c_str(), needed, full.data(), nullptr);
  if (length == 0 || length >= needed) {
    return {};
  }
  full.resize(length);
  if (full.size() < kLongPath || full.compare(0, 3, L"\\\\?") == 0 ||
      full.compare(0, 3, L"\\\\.") == 0) {
    return full;
  }
  return full.compare(0, 2, L"\\\\") == 0 ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

}  // namespace quorvan::embedded
