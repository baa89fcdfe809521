#include <bench/scratch_file.h>

#include <fcntl.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

namespace bench {

void passScratchFile() {
  static const std::string bytes(553, 'x');
  constexpr const char* kPath = "scratch.xml";
  ::unlink(kPath);
  const int file =
      ::open(kPath, O_WRONLY | O_CREAT | O_EXCL | O_NOCTTY | O_NOFOLLOW | O_CLOEXEC, 0666);
  const bool isWritten =
      file >= 0 && ::write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
  if (!isWritten || ::close(file) != 0 || ::unlink(kPath) != 0) {
    throw std::runtime_error("a scratch file could not be written");
  }
}

}  // namespace bench
