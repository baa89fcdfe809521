#include <fuzz/memory_files.h>

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <quorvan/xml/embedded/files/file_calls.h>

namespace quorvan::fuzz {

namespace {

struct File {
  std::string bytes;
  ino_t number;
};

struct Opened {
  std::shared_ptr<File> file;  // null once it is closed
  std::size_t at = 0;
};

struct Disk {
  std::map<std::string, std::shared_ptr<File>> files;
  std::vector<Opened> opened;
  std::string lost;
  ino_t lastNumber = 0;
};

Disk disk;

int failed(int error) {
  errno = error;
  return -1;
}

Opened* openedAt(int number) {
  const auto index = static_cast<std::size_t>(number);
  return number >= 0 && index < disk.opened.size() && disk.opened[index].file != nullptr
             ? &disk.opened[index]
             : nullptr;
}

int openFile(const char* path, int flags, mode_t /*mode*/) {
  auto found = disk.files.find(path);
  if (found == disk.files.end()) {
    if ((flags & O_CREAT) == 0) {
      return failed(ENOENT);
    }
    const auto file = std::make_shared<File>(File{{}, ++disk.lastNumber});
    found = disk.files.emplace(path, file).first;
  } else if ((flags & O_EXCL) != 0) {
    return failed(EEXIST);
  }
  disk.opened.push_back({found->second});
  return static_cast<int>(disk.opened.size() - 1);
}

ssize_t readFile(int number, void* buffer, std::size_t size) {
  Opened* const opened = openedAt(number);
  if (opened == nullptr) {
    return failed(EBADF);
  }
  const std::string& bytes = opened->file->bytes;
  const std::size_t count = std::min(size, bytes.size() - opened->at);
  std::memcpy(buffer, bytes.data() + opened->at, count);
  opened->at += count;
  return static_cast<ssize_t>(count);
}

ssize_t writeFile(int number, const void* bytes, std::size_t size) {
  Opened* const opened = openedAt(number);
  if (opened == nullptr) {
    return failed(EBADF);
  }
  opened->file->bytes.append(static_cast<const char*>(bytes), size);
  return static_cast<ssize_t>(size);
}

off_t seekInFile(int number, off_t offset, int /*whence*/) {
  Opened* const opened = openedAt(number);
  if (opened == nullptr) {
    return failed(EBADF);
  }
  opened->at = static_cast<std::size_t>(offset);
  return offset;
}

int closeFile(int number) {
  Opened* const opened = openedAt(number);
  require(opened != nullptr, "a file is closed that is not open");
  opened->file = nullptr;
  return 0;
}

int renameFile(const char* from, const char* to) {
  const auto found = disk.files.find(from);
  if (found == disk.files.end()) {
    return failed(ENOENT);
  }
  const std::shared_ptr<File> file = found->second;
  disk.files.erase(found);
  if (disk.lost != to) {
    disk.files[to] = file;
  }
  return 0;
}

int removeFile(const char* path) {
  return disk.files.erase(path) != 0 ? 0 : failed(ENOENT);
}

void describe(const File& file, struct stat* status) {
  *status = {};
  status->st_mode = S_IFREG | 0644;
  status->st_ino = file.number;
  status->st_size = static_cast<off_t>(file.bytes.size());
}

int statusOfOpened(int number, struct stat* status) {
  const Opened* const opened = openedAt(number);
  if (opened == nullptr) {
    return failed(EBADF);
  }
  describe(*opened->file, status);
  return 0;
}

int statusOfPath(const char* path, struct stat* status) {
  const auto found = disk.files.find(path);
  if (found == disk.files.end()) {
    return failed(ENOENT);
  }
  describe(*found->second, status);
  return 0;
}

constexpr embedded::FileCalls kCalls = {
    openFile,
    readFile,
    writeFile,
    seekInFile,
    [](int) { return 0; },
    closeFile,
    renameFile,
    removeFile,
    statusOfOpened,
    statusOfPath,
    [](const char*, char*, std::size_t) -> ssize_t { return failed(EINVAL); },
    [](const char* path, int) { return disk.files.count(path) != 0 ? 0 : failed(ENOENT); },
    [](int, int) { return 0; },
    [](int, mode_t) { return 0; },
    [](int, uid_t, gid_t) { return 0; },
    [](int, int, int) { return 0; },
};

}  // namespace

MemoryFiles::MemoryFiles() {
  disk = Disk();
  embedded::setFileCalls(kCalls);
}

MemoryFiles::~MemoryFiles() {
  embedded::setFileCalls(embedded::systemFileCalls());
  for (const Opened& opened : disk.opened) {
    require(opened.file == nullptr, "a file was left open");
  }
  for (const auto& file : disk.files) {
    require(file.first.find("quorvan-new") == std::string::npos, "a file was left behind");
  }
  disk = Disk();
}

void MemoryFiles::put(const std::string& path, std::string bytes) {
  disk.files[path] = std::make_shared<File>(File{std::move(bytes), ++disk.lastNumber});
}

std::string MemoryFiles::content(const std::string& path) const {
  const auto found = disk.files.find(path);
  require(found != disk.files.end(), "a file is missing");
  return found->second->bytes;
}

void MemoryFiles::losesWhatIsSavedAs(const std::string& path) {
  disk.lost = path;
}

void require(bool condition, const char* what) {
  if (condition) {
    return;
  }
  std::fprintf(stderr, "not so: %s\n", what);
  std::abort();
}

}  // namespace quorvan::fuzz
