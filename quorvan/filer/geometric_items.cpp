// Single points and vectors: one element with the attributes "X", "Y" and "Z".
#include <quorvan/filer/coordinates.h>
#include <quorvan/filer/filer.h>

namespace dom = quorvan::dom;
using quorvan::filer::appendPoint;
using quorvan::filer::appendVector;

int CKtFiler::writeItem(CString name, CKtPnt3D point) {
  return write(dom::NameText(name), point);
}

int CKtFiler::write(const dom::Name& name, const CKtPnt3D& point) {
  const IXMLDOMNodePtr& scope = scopeToWrite();
  if (scope == nullptr) {
    return dropItem(name);
  }
  return appendPoint(m_document, scope, name, point.X(), point.Y(), point.Z()) ? 1 : 0;
}

int CKtFiler::writeItem(CString name, CKtVect3D vector) {
  return write(dom::NameText(name), vector);
}

int CKtFiler::write(const dom::Name& name, const CKtVect3D& vector) {
  const IXMLDOMNodePtr& scope = scopeToWrite();
  if (scope == nullptr) {
    return dropItem(name);
  }
  return appendVector(m_document, scope, name, vector.X(), vector.Y(), vector.Z()) ? 1 : 0;
}

int CKtFiler::readItem(CString name, CKtPnt3D* point) {
  return read(dom::NameText(name), point);
}

int CKtFiler::read(const dom::Name& name, CKtPnt3D* point) {
  return quorvan::filer::itemValue(findItem(name), point);
}

int CKtFiler::readItem(CString name, CKtVect3D* vector) {
  return read(dom::NameText(name), vector);
}

int CKtFiler::read(const dom::Name& name, CKtVect3D* vector) {
  return quorvan::filer::itemValue(findItem(name), vector);
}
