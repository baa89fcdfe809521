#include <quorvan/elements/formwork.h>

#include <quorvan/elements/formwork_items.h>

CKtZantoFormwork::~CKtZantoFormwork() = default;

void CKtZantoFormwork::addElement(CKtPnt3D start, CKtPnt3D end, CKtVect3D bulge) {
  m_points.insert(m_points.end(), {start, end});
  try {
    m_bulges.push_back(bulge);
  } catch (...) {
    m_points.resize(m_points.size() - 2);  // a segment is added whole or not at all
    throw;
  }
  m_count += 2;
}

bool CKtZantoFormwork::setPointAt(unsigned int i, const CKtPnt3D& point) {
  if (i >= m_count || i >= m_points.size()) {
    return false;
  }
  m_points[i] = point;
  return true;
}

bool CKtZantoFormwork::setBulgeAt(unsigned int i, const CKtVect3D& bulge) {
  if (i >= m_count / 2 || i >= m_bulges.size()) {
    return false;
  }
  m_bulges[i] = bulge;
  return true;
}

void CKtZantoFormwork::setPoints(const std::vector<CKtPnt3D>& points) {
  m_points = points;
  m_count = static_cast<unsigned int>(points.size());
}

int CKtZantoFormwork::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtZantoFormworkItems::kTable, *this, *filer);
}

int CKtZantoFormwork::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtZantoFormworkItems::kTable, *this, *filer);
}
