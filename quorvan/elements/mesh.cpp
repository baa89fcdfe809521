#include <quorvan/elements/mesh.h>

#include <quorvan/elements/items/list_index.h>
#include <quorvan/elements/mesh_items.h>

CKtZantoMesh::~CKtZantoMesh() = default;

using quorvan::items::isIndex;

namespace {

// What GetPointAt gives out of range: hosts know it by its x.
constexpr long kMarkerX = 666;

}  // namespace

CKtPnt3D CKtZantoMesh::GetPointAt(int i) const {
  return isIndex(i, m_points.size()) ? m_points[static_cast<std::size_t>(i)]
                                     : CKtPnt3D(CPoint(kMarkerX, 0));
}

void CKtZantoMesh::SetPointAt(int i, CKtPnt3D point) {
  if (isIndex(i, m_points.size())) {
    m_points[static_cast<std::size_t>(i)] = point;
  }
}

int CKtZantoMesh::fileOut(CKtFiler* filer) {
  return quorvan::items::fileOut(CKtZantoMeshItems::kTable, *this, *filer);
}

int CKtZantoMesh::fileIn(CKtFiler* filer) {
  return quorvan::items::fileIn(CKtZantoMeshItems::kTable, *this, *filer);
}
