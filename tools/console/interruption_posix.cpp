#include <pthread.h>
#include <signal.h>

#include <thread>

#include <tools/console/interruption.h>

namespace quorvan::tool {

namespace {

// Those that the caller of the program has not told it to ignore.
sigset_t watchedSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction action = {};
    if (sigaction(number, nullptr, &action) == 0 && action.sa_handler != SIG_IGN) {
      sigaddset(&signals, number);
    }
  }
  return signals;
}

// A thread waits for the signals, because little may be called where a signal arrives.
[[noreturn]] void wait(sigset_t signals) {
  int number = SIGTERM;
  while (sigwait(&signals, &number) != 0) {}
  removeInterruptedWork();
  signal(number, SIG_DFL);
  sigset_t one;
  sigemptyset(&one);
  sigaddset(&one, number);
  pthread_sigmask(SIG_UNBLOCK, &one, nullptr);
  raise(number);
  _Exit(128 + number);
}

}  // namespace

void watchForInterruption() {
  const sigset_t signals = watchedSignals();
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  std::thread(wait, signals).detach();
}

}  // namespace quorvan::tool
