#include <bench/measure.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <fstream>

namespace bench {

namespace {

clockid_t theClock = CLOCK_MONOTONIC;

double now() {
  timespec time = {};
  clock_gettime(theClock, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// A figure of /proc/self/status, in bytes; negative when it is not there.
double statusBytes(const std::string& key) {
  std::ifstream status("/proc/self/status");
  std::string word;
  while (status >> word) {
    if (word == key) {
      double kibibytes = 0;
      status >> kibibytes;
      return kibibytes * 1024;
    }
  }
  return -1;
}

double peakInThisProcess(const std::function<void()>& work) {
  std::ofstream("/proc/self/clear_refs") << "5";  // the peak starts from here
  const double before = statusBytes("VmRSS:");
  work();
  const double peak = statusBytes("VmHWM:");
  return before < 0 || peak < 0 ? -1 : peak - before;
}

}  // namespace

void giveFreeMemoryBack() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
}

double seconds(const std::function<void()>& work) {
  const double start = now();
  work();
  return now() - start;
}

void measureProcessorTime() {
  theClock = CLOCK_PROCESS_CPUTIME_ID;
}

double peakBytes(const std::function<void()>& work) {
  int ends[2];
  if (pipe(ends) != 0) {
    return -1;
  }
  const pid_t child = fork();
  if (child == 0) {
    const double bytes = peakInThisProcess(work);
    const bool sent = write(ends[1], &bytes, sizeof(bytes)) == sizeof(bytes);
    _exit(sent ? 0 : 1);
  }
  double bytes = -1;
  if (child < 0 || read(ends[0], &bytes, sizeof(bytes)) != sizeof(bytes)) {
    bytes = -1;
  }
  close(ends[0]);
  close(ends[1]);
  if (child > 0) {
    waitpid(child, nullptr, 0);
  }
  return bytes;
}

}  // namespace bench
