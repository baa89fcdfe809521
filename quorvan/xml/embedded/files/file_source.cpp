#include <quorvan/xml/embedded/files/file_source.h>

#include <fcntl.h>

#include <cerrno>
#include <utility>

#include <quorvan/xml/embedded/files/file_calls.h>

namespace quorvan::embedded {

namespace {

// Errors that say something about the path and not about the state of the system.
bool meansNoFile(int error) noexcept {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
    case EISDIR:
    case EACCES:
    case EPERM:
    case ELOOP:
    case ENAMETOOLONG:
    case EINVAL:
    case ENXIO:
    case ENODEV:
    case EBUSY:
    case ETXTBSY:
      return true;
    default:
      return false;
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

std::optional<FileSource> FileSource::open(const std::string& path) {
  const int file = openForReading(path);
  if (file < 0) {
    if (meansNoFile(errno)) {
      return std::nullopt;
    }
    raiseFileError(errno);
  }
  FileSource source(file);
  struct stat status = {};
  if (fileCalls().fstat(file, &status) != 0) {
    raiseFileError(errno);
  }
  if (!S_ISREG(status.st_mode)) {
    return std::nullopt;
  }
  return source;
}

FileSource::FileSource(FileSource&& other) noexcept : m_file(std::exchange(other.m_file, -1)) {}

FileSource::~FileSource() {
  if (m_file >= 0) {
    fileCalls().close(m_file);
  }
}

std::size_t FileSource::read(char* to, std::size_t size) {
  std::size_t filled = 0;
  for (std::size_t count = 1; count != 0 && filled < size; filled += count) {
    count = readOnce(to + filled, size - filled);
  }
  return filled;
}

void FileSource::rewind() {
  if (fileCalls().lseek(m_file, 0, SEEK_SET) < 0) {
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
