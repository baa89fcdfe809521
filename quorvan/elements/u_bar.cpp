#include <quorvan/elements/u_bar.h>

#include <quorvan/elements/u_bar_items.h>

CKtZantoUBar::~CKtZantoUBar() = default;

int CKtZantoUBar::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtZantoUBarItems::kTable, *this, *filer);
}

int CKtZantoUBar::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtZantoUBarItems::kTable, *this, *filer);
}
