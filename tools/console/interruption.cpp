#include <tools/console/interruption.h>

#include <mutex>
#include <set>
#include <system_error>

namespace quorvan::tool {

namespace {

struct WorkUnderWay {
  std::mutex mutex;
  std::set<std::filesystem::path> folders;
};

// Never destroyed: the program may be interrupted in its last moment.
WorkUnderWay& workUnderWay() {
  static WorkUnderWay& folders = *new WorkUnderWay;
  return folders;
}

}  // namespace

void removeWhenInterrupted(const std::filesystem::path& folder) {
  WorkUnderWay& known = workUnderWay();
  const std::lock_guard lock(known.mutex);
  known.folders.insert(folder);
}

void keepWhenInterrupted(const std::filesystem::path& folder) {
  WorkUnderWay& known = workUnderWay();
  const std::lock_guard lock(known.mutex);
  known.folders.erase(folder);
}

void removeInterruptedWork() noexcept {
  constexpr int kAttempts = 100;  // a file may come into the folder while it is being emptied
  WorkUnderWay& known = workUnderWay();
  const std::lock_guard lock(known.mutex);
  for (const std::filesystem::path& folder : known.folders) {
    std::error_code error;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
      std::filesystem::remove_all(folder, error);
      if (!error) {
        break;
      }
    }
  }
}

}  // namespace quorvan::tool
