// Writes a drawing through the flat functions and reads it back through the classes.

#include <quorvan/export/export.h>
#include <quorvan/quorvan.h>

#include <cstdio>
#include <iostream>

namespace {

bool readBack() {
  CKtFiler filer;
  CKtZantoCircle circle;
  CKtDrawingControl control;
  const bool read = filer.newFiler(CString(L"round_trip.xml")) == 1 && circle.fileIn(&filer) == 1 &&
                    control.fileIn(&filer) == 1;
  return read && circle.GetRadius() == 12.5 && circle.GetColor() == 3 &&
         control.GetDrawingName() == L"B12";
}

}  // namespace

int main() {
  std::remove("round_trip.xml");
  startFiling(L"round_trip.xml");
  exportCircle(1.0, 2.0, 0.0, 12.5, 3);
  endFiling(L"2025", 1, L"B12", 42);

  if (!readBack()) {
    std::cerr << "the drawing does not come back\n";
    return 1;
  }
  std::remove("round_trip.xml");
  return 0;
}
