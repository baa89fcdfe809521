#include <quorvan/elements/l_bar.h>

#include <quorvan/elements/l_bar_items.h>

CKtZantoLBar::~CKtZantoLBar() = default;

int CKtZantoLBar::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtZantoLBarItems::kTable, *this, *filer);
}

int CKtZantoLBar::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtZantoLBarItems::kTable, *this, *filer);
}
