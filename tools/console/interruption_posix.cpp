#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <thread>

#include <tools/console/interruption.h>

namespace quorvan::tool {

namespace {

// What an output that takes no more sends, and to none but the thread that writes.
constexpr int kOutputSignals[] = {SIGPIPE, SIGXFSZ};

volatile sig_atomic_t g_outputSignal = 0;

bool isIgnored(int number) {
  struct sigaction action = {};
  return sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN;
}

// Those that the caller of the program has not told it to ignore.
sigset_t watchedSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXCPU}) {
    if (!isIgnored(number)) {
      sigaddset(&signals, number);
    }
  }
  sigaddset(&signals, SIGUSR1);
  return signals;
}

// Hands the signal on to the thread that waits, which ends the program.
void stopWriting(int number) {
  g_outputSignal = number;
  kill(getpid(), SIGUSR1);
  for (;;) {
    pause();
  }
}

// A thread waits for the signals, because little may be called where a signal arrives.
[[noreturn]] void wait(sigset_t signals) {
  int number = SIGTERM;
  while (sigwait(&signals, &number) != 0) {}
  removeInterruptedWork();
  if (g_outputSignal != 0) {
    number = g_outputSignal;
  }
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
  for (const int number : kOutputSignals) {
    if (!isIgnored(number)) {
      struct sigaction action = {};
      action.sa_handler = stopWriting;
      sigaction(number, &action, nullptr);
    }
  }
}

}  // namespace quorvan::tool
