#include <quorvan/xml/embedded/files/file_replacement.h>

#include <fcntl.h>
#include <limits.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include <quorvan/xml/embedded/files/file_calls.h>
#include <quorvan/xml/name.h>

namespace quorvan::embedded {

namespace {

constexpr int kMaxLinks = 40;
constexpr int kMaxAttempts = 16;
constexpr std::size_t kMaxNameLength = 255;

std::string folderOf(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1);  // with its slash; empty for the current folder
}

// Nothing when there is nothing of that name.
std::optional<struct stat> statusOf(const std::string& path) {
  struct stat status = {};
  if (fileCalls().lstat(path.c_str(), &status) == 0) {
    return status;
  }
  if (errno != ENOENT) {
    raiseFileError(errno);
  }
  return std::nullopt;
}

std::string linkTarget(const std::string& path) {
  std::string target(PATH_MAX, '\0');
  const ssize_t length = fileCalls().readlink(path.c_str(), target.data(), target.size());
  if (length < 0) {
    raiseFileError(errno);
  }
  target.resize(static_cast<std::size_t>(length));
  return target.compare(0, 1, "/") == 0 ? target : folderOf(path) + target;
}

// The name of the new file: always the same for the same target, so that the next save finds what
// a killed process left, and unlike any that a person would choose.
std::string nameBeside(const std::string& target) {
  const std::string folder = folderOf(target);
  const std::string name = target.substr(folder.size());
  std::string beside = "." + name + ".quorvan-new";
  if (beside.size() > kMaxNameLength) {
    beside = ".quorvan-" + std::to_string(dom::hashName(name)) + "-" + std::to_string(name.size()) +
             ".quorvan-new";
  }
  return folder + beside;
}

int openFile(const std::string& path, int flags, mode_t mode) noexcept {
  int file = -1;
  do {
    file = fileCalls().open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode);
  } while (file < 0 && errno == EINTR);
  return file;
}

// Closes the file at the end.
class OpenFile {
 public:
  explicit OpenFile(int number) noexcept : m_number(number) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (m_number >= 0) {
      fileCalls().close(m_number);
    }
  }

  [[nodiscard]] int number() const noexcept { return m_number; }

 private:
  int m_number;
};

bool isSameFile(const struct stat& a, const struct stat& b) noexcept {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

// False when another process holds the lock. A file system without locks gives it to everybody.
bool lock(int file) noexcept {
  int result = 0;
  do {
    result = fileCalls().flock(file, LOCK_EX | LOCK_NB);
  } while (result != 0 && errno == EINTR);
  return result == 0 || errno != EWOULDBLOCK;
}

// Whether the file is still the one at the path.
bool isAtPath(int file, const std::string& path) {
  struct stat opened = {};
  if (fileCalls().fstat(file, &opened) != 0) {
    raiseFileError(errno);
  }
  const std::optional<struct stat> there = statusOf(path);
  return there && isSameFile(opened, *there);
}

void removeLeftOver(const std::string& beside) {
  const OpenFile file(openFile(beside, O_RDONLY | O_NOFOLLOW | O_NONBLOCK, 0));
  if (file.number() < 0) {
    // No regular file that may be read, so no new file of a save of ours that goes on.
    if (errno != ENOENT && fileCalls().unlink(beside.c_str()) != 0) {
      raiseFileError(errno);
    }
    return;
  }
  if (!lock(file.number())) {
    raiseFileError(EBUSY);
  }
  if (isAtPath(file.number(), beside) && fileCalls().unlink(beside.c_str()) != 0) {
    raiseFileError(errno);
  }
}

// The permissions of a file that belongs to another owner, or to another group, than the one whose
// permissions these were.
mode_t narrowed(mode_t mode, bool hasOwner, bool hasGroup) noexcept {
  if (!hasOwner) {
    mode &= ~static_cast<mode_t>(S_ISUID);
  }
  if (!hasGroup) {
    // Who is in the new group was one of the others, and who was in the old one is now.
    const mode_t both = (mode >> 3U) & mode & 07U;
    mode = (mode & (S_ISUID | S_ISVTX | S_IRWXU)) | (both << 3U) | both;
  }
  return mode;
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
  if (m_durability != dom::Durability::kDisk && tryCreateAtTarget()) {
    return;
  }
  std::optional<struct stat> former = statusOf(m_target);
  if (m_durability == dom::Durability::kDisk) {
    for (int links = 0; former && S_ISLNK(former->st_mode); ++links) {
      if (links == kMaxLinks) {
        raiseFileError(ELOOP);
      }
      m_target = linkTarget(m_target);
      former = statusOf(m_target);
    }
  }
  if (former && S_ISDIR(former->st_mode)) {
    raiseFileError(EISDIR);
  }
  if (former && !S_ISREG(former->st_mode)) {
    if (m_durability == dom::Durability::kDisk) {
      openInPlace();
      return;
    }
    former.reset();
  }
  if (former && fileCalls().access(m_target.c_str(), W_OK) != 0) {
    raiseFileError(errno);
  }
  m_folder = folderOf(m_target);
  if (m_folder.empty()) {
    m_folder = ".";
  }
  m_beside = nameBeside(m_target);
  createBeside(former);
}

// False where something is in the way.
bool FileReplacement::tryCreateAtTarget() {
  m_beside = m_target;
  m_file = openFile(m_target, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0666);
  if (m_file < 0) {
    m_beside.clear();
  }
  return m_file >= 0;
}

// A pipe that nobody reads is an error, and nothing to wait for; to a reader that is slow the
// writing goes on.
void FileReplacement::openInPlace() {
  m_file = openFile(m_target, O_WRONLY | O_NONBLOCK, 0);
  if (m_file < 0 || fileCalls().fcntl(m_file, F_SETFL, 0) != 0) {
    raiseFileError(errno);
  }
}

void FileReplacement::createBeside(const std::optional<struct stat>& former) {
  // Until it has the permissions of the old file, the new one is nobody else's.
  const mode_t mode = former ? 0600 : 0666;
  int attempts = 0;
  while (!tryCreate(mode)) {
    if (++attempts == kMaxAttempts) {
      raiseFileError(EBUSY);
    }
    removeLeftOver(m_beside);
  }
  if (former) {
    takeOver(*former);
  }
}

// The writer of a new file holds a lock on it, by which others tell it from one left behind. False
// when there is a file of that name, or another process took this one for left behind before it
// was locked.
bool FileReplacement::tryCreate(mode_t mode) {
  m_file = openFile(m_beside, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
  if (m_file < 0) {
    if (errno != EEXIST) {
      raiseFileError(errno);
    }
    return false;
  }
  if (lock(m_file) && isAtPath(m_file, m_beside)) {
    return true;
  }
  // Whoever took it for left behind has removed it, or is about to.
  fileCalls().close(std::exchange(m_file, -1));
  return false;
}

// What is not allowed is left: the new file then belongs to the writer, and to a group of the
// writer's that was not meant.
void FileReplacement::takeOver(const struct stat& former) const {
  constexpr auto kSameOwner = static_cast<uid_t>(-1);
  const bool hasOwner = fileCalls().fchown(m_file, former.st_uid, former.st_gid) == 0;
  const bool hasGroup = hasOwner || fileCalls().fchown(m_file, kSameOwner, former.st_gid) == 0;
  const mode_t mode = narrowed(former.st_mode & 07777, hasOwner, hasGroup);
  static_cast<void>(fileCalls().fchmod(m_file, mode));
}

void FileReplacement::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = fileCalls().write(m_file, bytes.data(), bytes.size());
    if (count > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (count == 0 || errno != EINTR) {
      raiseFileError(count == 0 ? EIO : errno);
    }
  }
}

void FileReplacement::commit() {
  putInPlace();
  if (m_durability == dom::Durability::kPassing) {
    static_cast<void>(::unlink(m_target.c_str()));
  }
}

void FileReplacement::putInPlace() {
  if (m_beside.empty() || m_beside == m_target) {
    // Closing may be what tells that not all arrived.
    if (fileCalls().close(std::exchange(m_file, -1)) != 0 && errno != EINTR) {
      raiseFileError(errno);
    }
    m_beside.clear();
    return;
  }
  if (m_durability == dom::Durability::kDisk) {
    bringToDisk();
  }
  if (!isAtPath(m_file, m_beside)) {
    // Somebody who may not see our lock has put another file there, which is not ours to remove.
    m_beside.clear();
    raiseFileError(EBUSY);
  }
  if (fileCalls().rename(m_beside.c_str(), m_target.c_str()) != 0) {
    raiseFileError(errno);
  }
  m_beside.clear();
  if (m_durability == dom::Durability::kDisk) {
    bringFolderToDisk();
  }
}

// Some file systems cannot be asked to; then there is nothing to wait for.
void FileReplacement::bringToDisk() const {
  while (fileCalls().fsync(m_file) != 0) {
    if (errno == EINVAL || errno == ENOSYS || errno == ENOTSUP) {
      return;
    }
    if (errno != EINTR) {
      raiseFileError(errno);
    }
  }
}

// The new file is in its place already: what fails here says only that a power failure could bring
// the old one back.
void FileReplacement::bringFolderToDisk() const noexcept {
  const OpenFile folder(openFile(m_folder, O_RDONLY | O_DIRECTORY, 0));
  if (folder.number() >= 0) {
    static_cast<void>(fileCalls().fsync(folder.number()));
  }
}

void FileReplacement::clearLeftOver(const SystemPath& path) noexcept {
  try {
    removeLeftOver(nameBeside(path));
  } catch (...) {  // NOLINT(bugprone-empty-catch): a save for the path will meet it again
  }
}

void FileReplacement::abandon() noexcept {
  if (!m_beside.empty() && (m_file >= 0 || m_beside == m_target)) {
    fileCalls().unlink(m_beside.c_str());
  }
  if (m_file >= 0) {
    fileCalls().close(m_file);
  }
}

}  // namespace quorvan::embedded
