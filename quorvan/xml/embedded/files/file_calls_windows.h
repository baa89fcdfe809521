// The system calls by which documents are read and written on Windows.
#pragma once

#include <cstddef>
#include <string>

#include <windows.h>

namespace quorvan::embedded {

/// A path as the system takes it.
using SystemPath = std::wstring;

/// An open file.
using SystemFile = HANDLE;
inline constexpr SystemFile kNoFile = nullptr;

/// The most bytes that one call is given to move.
inline constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;

/// Each works like the Windows function of its name, but that a file which could not be opened is
/// kNoFile, and that one which was opened with the right to delete it is gone when it is closed.
struct FileCalls {
  HANDLE (*createFile)(const wchar_t* path, DWORD access, DWORD sharing, DWORD disposition);
  BOOL (*readFile)(HANDLE file, void* buffer, DWORD size, DWORD* moved);
  BOOL (*writeFile)(HANDLE file, const void* bytes, DWORD size, DWORD* moved);
  BOOL (*setFilePointer)(HANDLE file, LARGE_INTEGER offset);
  BOOL (*flushFileBuffers)(HANDLE file);
  BOOL (*closeHandle)(HANDLE file);
  BOOL (*moveFile)(const wchar_t* from, const wchar_t* to, DWORD flags);
  BOOL (*deleteFile)(const wchar_t* path);
  DWORD (*getFileAttributes)(const wchar_t* path);
  DWORD (*getFileType)(HANDLE file);
  BOOL (*getFileSize)(HANDLE file, LARGE_INTEGER* size);
};

}  // namespace quorvan::embedded
