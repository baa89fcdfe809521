#include <quorvan/xml/embedded/files/file_source.h>

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include <quorvan/xml/embedded/files/file_calls.h>

namespace quorvan::embedded {

namespace {

// What an error says about the path; nothing where it tells of the state of the system.
dom::LoadFailure failureOf(int error) noexcept {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ELOOP:
    case ENAMETOOLONG:
    case EINVAL:
    case ENXIO:
    case ENODEV:
      return dom::LoadFailure::kMissing;
    case EACCES:
    case EPERM:
    case EBUSY:
    case ETXTBSY:
      return dom::LoadFailure::kNoAccess;
    case EISDIR:
      return dom::LoadFailure::kNotAFile;
    default:
      return dom::LoadFailure::kNone;
  }
}

// Opening does not wait for the other end of a pipe; reading a regular file never does.
int openForReading(const std::string& path) noexcept {
  int file = -1;
  do {
    file = fileCalls().open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0);
  } while (file < 0 && errno == EINTR);
  return file;
}

}  // namespace

std::optional<FileSource> FileSource::open(const SystemPath& path, dom::LoadProblem& problem) {
  const int file = openForReading(path);
  if (file < 0) {
    const int error = errno;
    problem.failure = failureOf(error);
    if (problem.failure != dom::LoadFailure::kNone) {
      return std::nullopt;
    }
    raiseFileError(error);
  }
  FileSource source(file);
  struct stat status = {};
  if (fileCalls().fstat(file, &status) != 0) {
    raiseFileError(errno);
  }
  if (!S_ISREG(status.st_mode)) {
    problem.failure = dom::LoadFailure::kNotAFile;
    return std::nullopt;
  }
  source.m_size = static_cast<std::uint64_t>(status.st_size);
  return source;
}

FileSource FileSource::ofBytes(std::string_view bytes) noexcept {
  return FileSource(bytes);
}

FileSource::FileSource(FileSource&& other) noexcept
    : m_file(std::exchange(other.m_file, -1)),
      m_bytes(other.m_bytes),
      m_position(other.m_position),
      m_size(other.m_size) {}

FileSource::~FileSource() {
  if (m_file >= 0) {
    fileCalls().close(m_file);
  }
}

std::size_t FileSource::read(char* to, std::size_t size) {
  if (m_file < 0) {
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
  if (m_file >= 0 && fileCalls().lseek(m_file, 0, SEEK_SET) < 0) {
    raiseFileError(errno);
  }
}

std::size_t FileSource::readOnce(char* to, std::size_t size) const {
  for (;;) {
    const ssize_t count = fileCalls().read(m_file, to, size);
    if (count >= 0) {
      return static_cast<std::size_t>(count);
    }
    if (errno != EINTR) {
      raiseFileError(errno);
    }
  }
}

}  // namespace quorvan::embedded
