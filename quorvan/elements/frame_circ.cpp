#include <quorvan/elements/frame_circ.h>

#include <quorvan/elements/frame_circ_items.h>

CKtZantoFrameCirc::~CKtZantoFrameCirc() = default;

int CKtZantoFrameCirc::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtZantoFrameCircItems::kTable, *this, *filer);
}

int CKtZantoFrameCirc::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtZantoFrameCircItems::kTable, *this, *filer);
}
