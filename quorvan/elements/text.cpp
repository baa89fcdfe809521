#include <quorvan/elements/text.h>

#include <quorvan/elements/text_items.h>

CKtZantoText::~CKtZantoText() = default;

int CKtZantoText::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtZantoTextItems::kTable, *this, *filer);
}

int CKtZantoText::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtZantoTextItems::kTable, *this, *filer);
}
