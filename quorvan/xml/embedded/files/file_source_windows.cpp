#include <algorithm>
#include <utility>

#include <quorvan/xml/embedded/files/file_calls.h>
#include <quorvan/xml/embedded/files/file_source.h>

namespace quorvan::embedded {

namespace {

// What an error says about the path; nothing where it tells of the state of the system.
dom::LoadFailure failureOf(DWORD error) noexcept {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_DIRECTORY:
    case ERROR_CANT_RESOLVE_FILENAME:
      return dom::LoadFailure::kMissing;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_PIPE_BUSY:
    case ERROR_CANT_ACCESS_FILE:
      return dom::LoadFailure::kNoAccess;
    default:
      return dom::LoadFailure::kNone;
  }
}

// A folder cannot be opened, which is no matter of permissions.
bool isFolder(const SystemPath& path) noexcept {
  const DWORD attributes = fileCalls().getFileAttributes(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

}  // namespace

std::optional<FileSource> FileSource::open(const SystemPath& path, dom::LoadProblem& problem) {
  const HANDLE file =
      fileCalls().createFile(path.c_str(), GENERIC_READ,
                             FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
  if (file == kNoFile) {
    const DWORD error = ::GetLastError();
    problem.failure = failureOf(error);
    if (problem.failure == dom::LoadFailure::kNone) {
      raiseFileError(static_cast<int>(error));
    }
    if (error == ERROR_ACCESS_DENIED && isFolder(path)) {
      problem.failure = dom::LoadFailure::kNotAFile;
    }
    return std::nullopt;
  }
  FileSource source(file);
  ::SetLastError(NO_ERROR);
  if (fileCalls().getFileType(file) != FILE_TYPE_DISK) {
    if (const DWORD error = ::GetLastError(); error != NO_ERROR) {
      raiseFileError(static_cast<int>(error));
    }
    problem.failure = dom::LoadFailure::kNotAFile;
    return std::nullopt;
  }
  LARGE_INTEGER size = {};
  if (fileCalls().getFileSize(file, &size) == 0) {
    raiseFileError(static_cast<int>(::GetLastError()));
  }
  source.m_size = static_cast<std::uint64_t>(size.QuadPart);
  return source;
}

FileSource FileSource::ofBytes(std::string_view bytes) noexcept {
  return FileSource(bytes);
}

FileSource::FileSource(FileSource&& other) noexcept
    : m_file(std::exchange(other.m_file, kNoFile)),
      m_bytes(other.m_bytes),
      m_position(other.m_position),
      m_size(other.m_size) {}

FileSource::~FileSource() {
  if (m_file != kNoFile) {
    fileCalls().closeHandle(m_file);
  }
}

std::size_t FileSource::read(char* to, std::size_t size) {
  if (m_file == kNoFile) {
    const std::size_t count = std::min(size, m_bytes.size() - m_position);
    std::copy_n(m_bytes.begin() + static_cast<std::ptrdiff_t>(m_position), count, to);
    m_position += count;
    return count;
  }
  std::size_t filled = 0;
  for (std::size_t count = 1; count != 0 && filled < size; filled += count) {
    count = readOnce(to + filled, size - filled);
  }
  return filled;
}

void FileSource::rewind() {
  m_position = 0;
  if (m_file != kNoFile && fileCalls().setFilePointer(m_file, LARGE_INTEGER{}) == 0) {
    raiseFileError(static_cast<int>(::GetLastError()));
  }
}

std::size_t FileSource::readOnce(char* to, std::size_t size) const {
  DWORD count = 0;
  if (fileCalls().readFile(m_file, to, static_cast<DWORD>(std::min(size, kMostAtOnce)), &count) ==
      0) {
    raiseFileError(static_cast<int>(::GetLastError()));
  }
  return count;
}

}  // namespace quorvan::embedded
