#include <quorvan/geometry/transform.h>

CKtMat::CKtMat() noexcept = default;
CKtMat::CKtMat(const CKtMat& other) noexcept = default;
CKtMat& CKtMat::operator=(const CKtMat& other) noexcept = default;
CKtMat::~CKtMat() = default;

void CKtMat3D::Transform(LOGFONTW& /*font*/) const {}
void CKtMat3D::Transform(const LOGFONTW& /*in*/, LOGFONTW& /*out*/) const {}
LOGFONTW CKtMat3D::GetTransform(const LOGFONTW& font) const {
  return font;
}

void CKtMat3D::UnTransform(CKtPnt3D& /*point*/) const {}
void CKtMat3D::UnTransform(const CKtPnt3D& /*in*/, CKtPnt3D& /*out*/) const {}
CKtPnt3D CKtMat3D::GetUnTransform(const CKtPnt3D& point) const {
  return point;
}

void CKtMat3D::UnTransform(CKtVect3D& /*vector*/) const {}
void CKtMat3D::UnTransform(const CKtVect3D& /*in*/, CKtVect3D& /*out*/) const {}
CKtVect3D CKtMat3D::GetUnTransform(const CKtVect3D& vector) const {
  return vector;
}

void CKtMat3D::UnTransform(double& /*length*/) const {}
double CKtMat3D::GetUnTransform(double length) const {
  return length;
}

void CKtMat3D::UnTransform(LOGFONTW& /*font*/) const {}
void CKtMat3D::UnTransform(const LOGFONTW& /*in*/, LOGFONTW& /*out*/) const {}
LOGFONTW CKtMat3D::GetUnTransform(const LOGFONTW& font) const {
  return font;
}
