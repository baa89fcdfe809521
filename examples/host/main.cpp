// A host: hands a finished drawing over as a transfer file. Copy it, and put your own elements
// where the beam is: everything else a host needs is here.
//
//   beam_host FILE.xml
//
// Lengths are in millimetres, angles in degrees; y points upwards on the sheet.

#include <quorvan/export/export.h>
#include <quorvan/platform/com_error.h>

#include <exception>
#include <filesystem>
#include <iostream>
#include <system_error>

namespace {

// What a CAD program holds of a bar beside its shape: one bar mark of the bar list.
struct Mark {
  long reference;
  double diameter;
};

constexpr Mark kBottom = {1, 20.0};
constexpr Mark kTop = {2, 12.0};
constexpr Mark kLink = {3, 8.0};

constexpr const wchar_t* kGrade = L"B500B";
constexpr const wchar_t* kAdherence = L"Ha";
constexpr unsigned long kBlack = 7;
constexpr double kLength = 5000.0;
constexpr double kHeight = 500.0;
constexpr double kWidth = 300.0;
constexpr double kCover = 30.0;

// The outline of a rectangle: two points for each side, and one bulge, which is none.
void exportOutline(double x, double width) {
  const double xs[] = {x, x + width, x + width, x + width, x + width, x, x, x};
  const double ys[] = {0, 0, 0, kHeight, kHeight, kHeight, kHeight, 0};
  const double zeros[8] = {};
  exportFormwork(8, xs, ys, zeros, zeros, zeros, zeros);
}

// A straight bar along the beam, `z` in front of or behind the sheet; a hook at either end, bent
// upwards, where it is longer than 0. What lies behind another bar has the hidden flag.
void exportBar(const Mark& mark, double y, double z, double hookLength) {
  exportBarStraight(kCover, y, z, kLength - kCover, y, z, hookLength, hookLength, true, true, 90,
                    90, kGrade, kAdherence, mark.reference, mark.diameter, /* hidden */ z < 0);
}

void exportElevation() {
  exportOutline(0, kLength);
  exportText(L"Beam B7 \u2013 elevation", 0, kHeight + 100, 0, 0, kBlack, 0, 0, 60);
  for (const double z : {0.0, -102.0, -204.0}) {
    exportBar(kBottom, 48, z, 200);
  }
  for (const double z : {0.0, -212.0}) {
    exportBar(kTop, 456, z, 0);
  }

  // One link as it is bent, then a frame for each place where it stands: what is pushed becomes one
  // repartition of that link when the filing ends. Frames of one series share mark, key and view.
  const double low = kCover + kLink.diameter / 2;
  const double high = kHeight - low;
  exportFrameRect(100, low, 0, 100, high, 0, 100, high, kWidth - 2 * low, 80, 135, kGrade,
                  kAdherence, kLink.reference, kLink.diameter, false);
  for (int i = 0; i < 25; ++i) {
    const double x = 100 + 200 * i;
    pushRepartitionFrameRect(x, low, 0, x, high, 0, L"CKtZantoFrameRect", 80, 135, kGrade,
                             kAdherence, kLink.reference, kLink.diameter, false, /* key */ 1,
                             /* view */ 2, 0);
  }
}

// The same bars seen end-on, beside the elevation.
void exportSection() {
  const double left = kLength + 500;
  exportOutline(left, kWidth);
  exportText(L"Section", left, kHeight + 100, 0, 0, kBlack, 0, 0, 60);
  for (const double x : {48.0, kWidth / 2, kWidth - 48.0}) {
    exportPointBar(left + x, 48, 0, kGrade, kAdherence, kBottom.reference, kBottom.diameter, false);
  }
  for (const double x : {44.0, kWidth - 44.0}) {
    exportPointBar(left + x, 456, 0, kGrade, kAdherence, kTop.reference, kTop.diameter, false);
  }
}

// Lets go of a filing that failed: it is still open, and would be saved when the program ends, and
// frames that are still held back would go into the next drawing.
void abandon(const std::filesystem::path& draft) {
  stopFiling();
  try {
    endFiling(L"", 0, L"", 0);
  } catch (const _com_error&) {
    startFiling(L"");  // cannot be saved either
  }
  std::error_code ignored;  // the error that led here is the one to tell
  std::filesystem::remove(draft, ignored);
}

// A filing adds to the file that it finds. This one is to replace it, so it goes to a file beside
// it, which takes the old one's place when it is whole.
void transfer(const std::filesystem::path& path) {
  std::filesystem::path draft = path;
  draft += ".draft";
  std::filesystem::remove(draft);
  try {
    startFiling(draft.wstring().c_str());
    exportElevation();
    exportSection();
    endFiling(/* version */ L"2026.1", /* service pack */ 0, /* drawing */ L"B7",
              /* check sum */ 7);
  } catch (...) {
    abandon(draft);
    throw;
  }
  std::filesystem::rename(draft, path);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: beam_host FILE.xml\n";
    return 2;
  }
  try {
    transfer(argv[1]);
  } catch (const _com_error& error) {
    // The document could not be made or saved: no such folder, no right to write, a full disk.
    std::cerr << argv[1] << ": cannot be written (error 0x" << std::hex
              << static_cast<unsigned long>(error.Error()) << ")\n";
    return 1;
  } catch (const std::exception& error) {
    std::cerr << argv[1] << ": cannot be written: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
