#include <quorvan/elements/polygon_bar.h>

#include <quorvan/elements/items/list_index.h>
#include <quorvan/elements/polygon_bar_items.h>

CKtZantoPolygonBar::~CKtZantoPolygonBar() = default;

using quorvan::items::isIndex;

CKtPnt3D CKtZantoPolygonBar::getPoint(int i) const {
  return isIndex(i, m_points.size()) ? m_points[static_cast<std::size_t>(i)] : CKtPnt3D(0, 0, 0);
}

void CKtZantoPolygonBar::setPoint(int i, CKtPnt3D point) {
  if (isIndex(i, m_points.size())) {
    m_points[static_cast<std::size_t>(i)] = point;
  }
}

int CKtZantoPolygonBar::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtZantoPolygonBarItems::kTable, *this, *filer);
}

int CKtZantoPolygonBar::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtZantoPolygonBarItems::kTable, *this, *filer);
}
