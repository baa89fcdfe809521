#include <quorvan/elements/filled_polygon.h>

#include <quorvan/elements/filled_polygon_items.h>

CKtFilledPolygon::~CKtFilledPolygon() = default;

void CKtFilledPolygon::addPoint(CKtPnt3D point) {
  m_points.push_back(point);
  ++m_count;
}

bool CKtFilledPolygon::setPointAt(unsigned int i, const CKtPnt3D& point) {
  if (i >= m_count || i >= m_points.size()) {
    return false;
  }
  m_points[i] = point;
  return true;
}

void CKtFilledPolygon::setPoints(const std::vector<CKtPnt3D>& points) {
  m_points = points;
  m_count = static_cast<unsigned int>(points.size());
}

int CKtFilledPolygon::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtFilledPolygonItems::kTable, *this, *filer);
}

int CKtFilledPolygon::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtFilledPolygonItems::kTable, *this, *filer);
}
