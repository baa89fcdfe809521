#include <quorvan/elements/circle.h>

#include <quorvan/elements/circle_items.h>

CKtZantoCircle::~CKtZantoCircle() = default;

int CKtZantoCircle::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtZantoCircleItems::kTable, *this, *filer);
}

int CKtZantoCircle::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtZantoCircleItems::kTable, *this, *filer);
}
