#include <quorvan/elements/stirrup.h>

#include <quorvan/elements/stirrup_items.h>

CKtZantoStirrup::~CKtZantoStirrup() = default;

int CKtZantoStirrup::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtZantoStirrupItems::kTable, *this, *filer);
}

int CKtZantoStirrup::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtZantoStirrupItems::kTable, *this, *filer);
}
