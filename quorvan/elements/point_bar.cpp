#include <quorvan/elements/point_bar.h>

#include <quorvan/elements/point_bar_items.h>

CKtZantoPointBar::~CKtZantoPointBar() = default;

int CKtZantoPointBar::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtZantoPointBarItems::kTable, *this, *filer);
}

int CKtZantoPointBar::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtZantoPointBarItems::kTable, *this, *filer);
}
