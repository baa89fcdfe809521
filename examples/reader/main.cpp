// A reader: prints what a transfer file holds.
//
//   drawing_reader FILE.xml
//
// The file itself is not touched: a copy of it is read.

#include <quorvan/platform/com_error.h>

#include <exception>
#include <iostream>

#include "drawing_summary.h"
#include "scratch_copy.h"
#include "summary_text.h"

namespace {

int printSummary(const std::filesystem::path& path) {
  const ScratchCopy copy(path);
  const DrawingSummary summary = summarize(copy.path());
  if (summary.elements.empty()) {
    std::cerr << path.string() << ": is no transfer file, or has no elements\n";
    return 1;
  }
  std::cout << path.string() << '\n';
  print(std::cout, summary);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: drawing_reader FILE.xml\n";
    return 2;
  }
  try {
    return printSummary(argv[1]);
  } catch (const _com_error& error) {
    std::cerr << argv[1] << ": cannot be read (error 0x" << std::hex
              << static_cast<unsigned long>(error.Error()) << ")\n";
  } catch (const std::exception& error) {
    std::cerr << argv[1] << ": cannot be read: " << error.what() << '\n';
  }
  return 1;
}
