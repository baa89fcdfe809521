#include <quorvan/elements/drawing_control.h>

#include <quorvan/elements/drawing_control_items.h>

CKtDrawingControl::~CKtDrawingControl() = default;

int CKtDrawingControl::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtDrawingControlItems::kTable, *this, *filer);
}

int CKtDrawingControl::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtDrawingControlItems::kTable, *this, *filer);
}
