#include <algorithm>
#include <new>
#include <string>
#include <utility>

#include <aclapi.h>

#include <quorvan/text/utf8.h>
#include <quorvan/xml/embedded/files/file_calls.h>
#include <quorvan/xml/embedded/files/file_replacement.h>
#include <quorvan/xml/name.h>

namespace quorvan::embedded {

namespace {

constexpr int kMaxAttempts = 16;
constexpr std::size_t kMaxNameLength = 255;

[[noreturn]] void raiseLastError() {
  raiseFileError(static_cast<int>(::GetLastError()));
}

bool isDevice(const SystemPath& path) {
  return path.compare(0, 4, L"\\\\.\\") == 0;
}

// The name of the new file: always the same for the same target, so that the next save finds what
// a killed process left, and unlike any that a person would choose.
SystemPath nameBeside(const SystemPath& target) {
  const SystemPath folder = target.substr(0, target.find_last_of(L"\\/") + 1);
  const SystemPath name = target.substr(folder.size());
  SystemPath beside = L"." + name + L".quorvan-new";
  if (beside.size() > kMaxNameLength) {
    beside = L".quorvan-" + std::to_wstring(dom::hashName(toUtf8(name))) + L"-" +
             std::to_wstring(name.size()) + L".quorvan-new";
  }
  return folder + beside;
}

// Where a link leads.
SystemPath linkTarget(const SystemPath& link) {
  const HANDLE file =
      ::CreateFileW(link.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    raiseLastError();
  }
  SystemPath target(::GetFinalPathNameByHandleW(file, nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
  const DWORD length = ::GetFinalPathNameByHandleW(
      file, target.data(), static_cast<DWORD>(target.size()), FILE_NAME_NORMALIZED);
  const DWORD error = ::GetLastError();
  ::CloseHandle(file);
  if (length == 0 || length >= target.size()) {
    raiseFileError(static_cast<int>(error));
  }
  target.resize(length);
  return target;
}

// Gives the new file the permissions of the old one: those that were given to it itself; those of
// the folder it has already. What is not allowed is left.
void copyPermissions(const SystemPath& from, SystemPath to) noexcept {
  PACL list = nullptr;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  if (::GetNamedSecurityInfoW(from.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                              nullptr, &list, nullptr, &descriptor) != ERROR_SUCCESS) {
    return;
  }
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  if (list != nullptr && ::GetSecurityDescriptorControl(descriptor, &control, &revision) != 0) {
    const SECURITY_INFORMATION inheritance = (control & SE_DACL_PROTECTED) != 0
                                                 ? PROTECTED_DACL_SECURITY_INFORMATION
                                                 : UNPROTECTED_DACL_SECURITY_INFORMATION;
    static_cast<void>(::SetNamedSecurityInfoW(to.data(), SE_FILE_OBJECT,
                                              DACL_SECURITY_INFORMATION | inheritance, nullptr,
                                              nullptr, list, nullptr));
  }
  ::LocalFree(descriptor);
}

}  // namespace

FileReplacement::FileReplacement(const SystemPath& path, dom::Durability durability)
    : m_target(path), m_durability(durability) {
  try {
    begin();
  } catch (...) {
    abandon();
    throw;
  }
}

FileReplacement::~FileReplacement() {
  abandon();
}

void FileReplacement::begin() {
  if (isDevice(m_target)) {
    m_file = fileCalls().createFile(m_target.c_str(), GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
    if (m_file == kNoFile) {
      raiseLastError();
    }
    return;
  }
  if (m_durability != dom::Durability::kDisk && tryCreateAtTarget()) {
    return;
  }
  DWORD former = fileCalls().getFileAttributes(m_target.c_str());
  if (m_durability == dom::Durability::kDisk && former != INVALID_FILE_ATTRIBUTES &&
      (former & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
    m_target = linkTarget(m_target);
    former = fileCalls().getFileAttributes(m_target.c_str());
  }
  if (former == INVALID_FILE_ATTRIBUTES) {
    if (::GetLastError() != ERROR_FILE_NOT_FOUND) {
      raiseLastError();
    }
  } else if ((former & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0) {
    raiseFileError(ERROR_ACCESS_DENIED);
  }
  createBeside();
  if (former != INVALID_FILE_ATTRIBUTES) {
    copyPermissions(m_target, m_beside);
  }
}

// False where something is in the way.
bool FileReplacement::tryCreateAtTarget() {
  m_beside = m_target;
  const DWORD access =
      m_durability == dom::Durability::kPassing ? GENERIC_WRITE | DELETE : GENERIC_WRITE;
  m_file = fileCalls().createFile(m_target.c_str(), access, 0, CREATE_NEW);
  if (m_file == kNoFile) {
    m_beside.clear();
  }
  return m_file != kNoFile;
}

// Nobody else may open the new file, by which others tell it from one left behind: that one can be
// deleted.
void FileReplacement::createBeside() {
  SystemPath beside = nameBeside(m_target);
  for (int attempt = 0; attempt < kMaxAttempts; ++attempt) {
    m_file = fileCalls().createFile(beside.c_str(), GENERIC_WRITE, 0, CREATE_NEW);
    if (m_file != kNoFile) {
      m_beside = std::move(beside);
      return;
    }
    if (::GetLastError() != ERROR_FILE_EXISTS) {
      raiseLastError();
    }
    if (fileCalls().deleteFile(beside.c_str()) == 0 && ::GetLastError() != ERROR_FILE_NOT_FOUND) {
      raiseLastError();
    }
  }
  raiseFileError(ERROR_SHARING_VIOLATION);
}

void FileReplacement::write(std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD count = 0;
    const auto size = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    if (fileCalls().writeFile(m_file, bytes.data(), size, &count) == 0) {
      raiseLastError();
    }
    if (count == 0) {
      raiseFileError(ERROR_WRITE_FAULT);
    }
    bytes.remove_prefix(count);
  }
}

void FileReplacement::commit() {
  if (m_beside.empty() || m_beside == m_target) {
    close();
    m_beside.clear();
    return;
  }
  DWORD flags = MOVEFILE_REPLACE_EXISTING;
  if (m_durability == dom::Durability::kDisk) {
    bringToDisk();
    flags |= MOVEFILE_WRITE_THROUGH;
  }
  close();
  if (fileCalls().moveFile(m_beside.c_str(), m_target.c_str(), flags) == 0) {
    raiseLastError();
  }
  m_beside.clear();
  if (m_durability == dom::Durability::kPassing) {
    fileCalls().deleteFile(m_target.c_str());
  }
}

// Without this a power failure could leave the new name over data that never reached the disk. Some
// file systems cannot be asked to; then there is nothing to wait for.
void FileReplacement::bringToDisk() const {
  if (fileCalls().flushFileBuffers(m_file) == 0) {
    const DWORD error = ::GetLastError();
    if (error != ERROR_INVALID_FUNCTION && error != ERROR_NOT_SUPPORTED) {
      raiseFileError(static_cast<int>(error));
    }
  }
}

// Closing may be what tells that not all arrived.
void FileReplacement::close() {
  if (fileCalls().closeHandle(std::exchange(m_file, kNoFile)) == 0) {
    raiseLastError();
  }
}

void FileReplacement::clearLeftOver(const SystemPath& path) noexcept {
  try {
    // Who is writing it lets nobody delete it.
    fileCalls().deleteFile(nameBeside(path).c_str());
  } catch (const std::bad_alloc&) {
    // It stays for the next time.
  }
}

void FileReplacement::abandon() noexcept {
  if (m_file != kNoFile) {
    fileCalls().closeHandle(std::exchange(m_file, kNoFile));
  }
  if (!m_beside.empty()) {
    fileCalls().deleteFile(m_beside.c_str());
  }
}

}  // namespace quorvan::embedded
