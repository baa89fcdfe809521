// What the leak checker is not to report: the font library under cairo keeps its patterns until the
// process ends.

// NOLINTBEGIN(clang-diagnostic-reserved-identifier): the names are those of the leak checker
extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig";
}
// NOLINTEND(clang-diagnostic-reserved-identifier)
