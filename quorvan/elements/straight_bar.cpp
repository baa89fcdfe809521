#include <quorvan/elements/straight_bar.h>

#include <quorvan/elements/straight_bar_items.h>

CKtZantoStraightBar::~CKtZantoStraightBar() = default;

int CKtZantoStraightBar::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtZantoStraightBarItems::kTable, *this, *filer);
}

int CKtZantoStraightBar::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtZantoStraightBarItems::kTable, *this, *filer);
}
