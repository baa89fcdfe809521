#include <quorvan/elements/frame_rect.h>

#include <quorvan/elements/frame_rect_items.h>

CKtZantoFrameRect::~CKtZantoFrameRect() = default;

int CKtZantoFrameRect::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtZantoFrameRectItems::kTable, *this, *filer);
}

int CKtZantoFrameRect::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtZantoFrameRectItems::kTable, *this, *filer);
}
