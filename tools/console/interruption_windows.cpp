#include <windows.h>

#include <tools/console/interruption.h>

namespace quorvan::tool {

namespace {

// Runs in a thread of its own; the handler behind it ends the program.
BOOL WINAPI handle(DWORD /*event*/) {
  removeInterruptedWork();
  return FALSE;
}

}  // namespace

void watchForInterruption() {
  SetConsoleCtrlHandler(handle, TRUE);
}

}  // namespace quorvan::tool
