/* A host built by the other family of Windows compilers: no C run-time, the library through its
 * import library alone. */

#include <quorvan/export/export.h>

__declspec(dllimport) __declspec(noreturn) void ExitProcess(unsigned int code);

int _fltused = 0; /* asked for by every object file with floating-point numbers */

void mainCRTStartup(void) {
  startFiling(L"import_library.xml");
  exportLine(0, 0, 0, 1000, 0, 0, 7);
  endFiling(L"2025", 1, L"B12", 42);
  ExitProcess(0);
}
