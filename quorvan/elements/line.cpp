#include <quorvan/elements/line.h>

#include <quorvan/elements/line_items.h>

CKtZantoLine::~CKtZantoLine() = default;

int CKtZantoLine::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtZantoLineItems::kTable, *this, *filer);
}

int CKtZantoLine::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtZantoLineItems::kTable, *this, *filer);
}
