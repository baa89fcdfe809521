// A host in C++ that writes a small drawing: the elevation of a beam with its bottom bar and its
// links. It calls the functions that return a result and throws errors of its own, so that it does
// not matter which compiler built the library.
//
//   write_drawing FILE [LINKS]
//
// Lengths are in millimetres. Whatever goes wrong is told, and what can be saved is saved.
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>

#include <quorvan/export/checked.h>

namespace {

class FilingError : public std::runtime_error {
 public:
  explicit FilingError(int number)
      : std::runtime_error("error " + std::to_string(number) + ": " + quorvanLastErrorText()) {}
};

void check(int result) {
  if (result != QUORVAN_DONE) {
    throw FilingError(result);
  }
}

void fileElements(int links) {
  // Four sides of 5000 x 500, two points a side, one bulge a side: straight.
  const double xs[] = {0, 5000, 5000, 5000, 5000, 0, 0, 0};
  const double ys[] = {0, 0, 0, 500, 500, 500, 500, 0};
  const double zeros[8] = {};

  check(exportFormworkChecked(8, xs, ys, zeros, zeros, zeros, zeros));
  check(exportTextChecked(L"Poutre B12 \u2013 1 \u00f8 20", 0, 600, 0, 0, 7, 0, 0, 100));
  check(exportBarStraightChecked(30, 40, 0, 4970, 40, 0, 150, 150, 1, 1, 90, 90, L"B500B", L"HA", 1,
                                 20, 0));
  check(exportFrameRectChecked(200, 30, 0, 200, 470, 0, 200, 470, 240, 80, 135, L"B500B", L"HA", 2,
                               8, 0));
  for (int link = 0; link < links; ++link) {
    const double x = 200 + 200 * link;
    check(pushRepartitionFrameRectChecked(x, 30, 0, x, 470, 0, L"CKtZantoFrameRect", 80, 135,
                                          L"B500B", L"HA", 2, 8, 0, 1, 1, 0));
  }
}

int end() {
  return endFilingChecked(L"2025", 1, L"B12", 42);
}

void writeDrawing(const std::filesystem::path& path, int links) {
  check(startFilingChecked(path.wstring().c_str()));
  fileElements(links);
  const int result = end();
  if (result == QUORVAN_BAD_SERIES) {
    const FilingError error(result);
    // Saves the drawing without the series.
    check(stopFilingChecked());
    check(end());
    throw error;
  }
  check(result);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 && argc != 3) {
    std::cerr << "usage: write_drawing FILE [LINKS]\n";
    return 2;
  }
  try {
    writeDrawing(argv[1], argc == 3 ? std::atoi(argv[2]) : 24);
  } catch (const std::exception& error) {
    std::cerr << argv[1] << ": " << error.what() << '\n';
    return 1;
  }
  return 0;
}
