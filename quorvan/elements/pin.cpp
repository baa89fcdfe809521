#include <quorvan/elements/pin.h>

#include <quorvan/elements/pin_items.h>

CKtZantoPin::~CKtZantoPin() = default;

int CKtZantoPin::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtZantoPinItems::kTable, *this, *filer);
}

int CKtZantoPin::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtZantoPinItems::kTable, *this, *filer);
}
