// Files of hostile size and hostile content, opened as a host opens them: the result is the stated
// one, and memory and time follow the size of the file.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include <tests/faults/hostile_files.h>
#include <tests/support/saved_file.h>
#include <tests/support/transfer_text.h>
#include <quorvan/filer/filer.h>

namespace quorvan::test {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kIsSanitized = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool kIsSanitized = true;
#else
constexpr bool kIsSanitized = false;
#endif
#else
constexpr bool kIsSanitized = false;
#endif

#ifdef QUORVAN_EMULATED
constexpr bool kIsEmulated = true;
#else
constexpr bool kIsEmulated = false;
#endif

// A sanitizer's own memory outweighs ours, and its time is not ours either; so with an emulator's.
constexpr bool kMeasures = !kIsSanitized && !kIsEmulated;
constexpr std::size_t kDivisor = kIsSanitized ? 10 : 1;

constexpr const char* kFile = "hostile.xml";

struct Cost {
  double seconds = 0;  // of the processor
  double megabytes = 0;
};

double secondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

// Opens, saves and closes the file in a process of its own.
Cost costOfOpening() {
  const pid_t child = ::fork();
  if (child == 0) {
    CKtFiler filer;
    ::_exit(filer.newFiler(L"hostile.xml") == 1 && filer.closeFiler() == 1 ? 0 : 1);
  }
  int status = 0;
  rusage used = {};
  EXPECT_EQ(::wait4(child, &status, 0, &used), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "ended with " << status;
  return {secondsOf(used.ru_utime) + secondsOf(used.ru_stime),
          static_cast<double>(used.ru_maxrss) / 1024};
}

Cost costOf(const HostileFile& hostile, std::size_t size) {
  hostile.write(kFile, size);
  return costOfOpening();
}

TEST(HostileInput, CostsNoMoreMemoryThanItsSizeAllows) {
  std::ofstream(kFile, std::ios::trunc).close();
  const double constant = costOfOpening().megabytes + 16;
  for (const HostileFile& hostile : hostileFiles()) {
    hostile.write(kFile, hostile.size / kDivisor);
    const double input = static_cast<double>(std::filesystem::file_size(kFile)) / 1024 / 1024;
    const double megabytes = costOfOpening().megabytes;
    // What is not taken is like no file, and replaced by an empty drawing.
    EXPECT_EQ(fileBytes(kFile) != transferFile(""), hostile.isTaken) << hostile.name;
    if (kMeasures) {
      EXPECT_LT(megabytes, 50 * input + constant) << hostile.name << ' ' << input;
    }
  }
}

TEST(HostileInput, TakesTimeInProportionToItsSize) {
  if (!kMeasures) {
    GTEST_SKIP() << "measures the sanitizer or the emulator";
  }
  for (const HostileFile& hostile : hostileFiles()) {
    // The best of a few: another program's load makes a run longer, never shorter.
    constexpr int kRuns = 3;
    constexpr double kRatio = 8;
    constexpr double kTolerance = 3;  // linear is 1, a square 8
    double small = 1e9;
    double large = 1e9;
    for (int i = 0; i < kRuns; ++i) {
      small = std::min(small, costOf(hostile, hostile.size / 8).seconds);
      large = std::min(large, costOf(hostile, hostile.size).seconds);
      if (large < kRatio * kTolerance * std::max(small, 0.01)) {
        break;
      }
    }
    EXPECT_LT(large, kRatio * kTolerance * std::max(small, 0.01)) << hostile.name << ' ' << small;
  }
}

}  // namespace
}  // namespace quorvan::test
