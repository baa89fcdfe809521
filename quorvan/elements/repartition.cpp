#include <quorvan/elements/repartition.h>

#include <quorvan/elements/repartition_items.h>

CKtZantoRepartition::~CKtZantoRepartition() = default;

int CKtZantoRepartition::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtZantoRepartitionItems::kTable, *this, *filer);
}

int CKtZantoRepartition::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtZantoRepartitionItems::kTable, *this, *filer);
}
