#include <quorvan/xml/embedded/files/file_source.h>

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include <quorvan/xml/embedded/files/file_calls.h>

namespace quorvan::embedded {

namespace {

constexpr std::size_t kPipeBlock = std::size_t{64} * 1024;

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

int openForReading(const std::string& path) noexcept {
  int file = -1;
  do {
    file = fileCalls().open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY, 0);
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
  if (S_ISDIR(status.st_mode)) {
    return std::nullopt;
  }
  if (!S_ISREG(status.st_mode)) {
    source.keepContent();
  }
  return source;
}

FileSource::FileSource(FileSource&& other) noexcept
    : m_file(std::exchange(other.m_file, -1)),
      m_content(std::move(other.m_content)),
      m_position(other.m_position) {}

FileSource::~FileSource() {
  if (m_file >= 0) {
    fileCalls().close(m_file);
  }
}

std::size_t FileSource::read(char* to, std::size_t size) {
  if (!m_content) {
    std::size_t filled = 0;
    for (std::size_t count = 1; count != 0 && filled < size; filled += count) {
      count = readFile(to + filled, size - filled);
    }
    return filled;
  }
  const std::size_t count = std::min(size, m_content->size() - m_position);
  std::memcpy(to, m_content->data() + m_position, count);
  m_position += count;
  return count;
}

void FileSource::rewind() {
  m_position = 0;
  if (!m_content && fileCalls().lseek(m_file, 0, SEEK_SET) < 0) {
    raiseFileError(errno);
  }
}

std::size_t FileSource::readFile(char* to, std::size_t size) const {
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

void FileSource::keepContent() {
  std::string content;
  std::size_t count = 0;
  do {
    const std::size_t before = content.size();
    content.resize(before + kPipeBlock);
    count = readFile(content.data() + before, kPipeBlock);
    content.resize(before + count);
  } while (count != 0);
  m_content = std::move(content);
}

}  // namespace quorvan::embedded
