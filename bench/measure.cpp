#include <bench/measure.h>

#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>

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

// What `work` gives in a child process; negative when that fails.
double inChild(const std::function<double()>& work) {
  int ends[2];
  if (pipe(ends) != 0) {
    return -1;
  }
  const pid_t child = fork();
  if (child == 0) {
    const double given = work();
    const bool sent = write(ends[1], &given, sizeof(given)) == sizeof(given);
    _exit(sent ? 0 : 1);
  }
  close(ends[1]);
  double given = -1;
  if (child < 0 || read(ends[0], &given, sizeof(given)) != sizeof(given)) {
    given = -1;
  }
  close(ends[0]);
  if (child > 0) {
    waitpid(child, nullptr, 0);
  }
  return given;
}

double peakInThisProcess(const std::function<void()>& work) {
  std::ofstream("/proc/self/clear_refs") << "5";  // the peak starts from here
  const double before = statusBytes("VmRSS:");
  work();
  const double peak = statusBytes("VmHWM:");
  return before < 0 || peak < 0 ? -1 : peak - before;
}

}  // namespace

double seconds(const std::function<void()>& work) {
  const double start = now();
  work();
  return now() - start;
}

void measureProcessorTime() {
  theClock = CLOCK_PROCESS_CPUTIME_ID;
}

double secondsInFreshProcess(const std::function<void()>& work) {
  const double taken = inChild([&] { return seconds(work); });
  if (taken < 0) {
    throw std::runtime_error("a process of its own failed");
  }
  return taken;
}

double peakBytes(const std::function<void()>& work) {
  return inChild([&] { return peakInThisProcess(work); });
}

}  // namespace bench
