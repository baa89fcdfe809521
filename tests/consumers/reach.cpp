// Every function that the installed headers declare is within reach of a program that links the
// library, and what the library raises can be caught by type.

#include <quorvan/export/export.h>
#include <quorvan/quorvan.h>

#include <cmath>
#include <cstdio>
#include <iostream>
#include <memory>
#include <string_view>

namespace {

bool failed = false;

void expect(bool holds, const char* what) {
  if (!holds) {
    std::cerr << "not so: " << what << '\n';
    failed = true;
  }
}

int countMessage(const wchar_t* /*text*/, unsigned int /*type*/, unsigned int /*helpContext*/) {
  return 1;
}

// The protected members are for filers that are derived outside the library.
class OwnFiler : public CKtFiler {
 public:
  CString rootName() { return quorvan::nodeName(GetDocumentRealNode()); }
  int matches(const IXMLDOMNodePtr& item) { return findChildMatch(item); }
};

class OwnTransform : public CKtMat3D {};

void reachNodes() {
  CKtPatternFiler pattern;
  pattern.newFiler(L"reach.xml");
  pattern.beginClass(L"Own", 1);
  pattern.writeItem(L"Item", 1.0);
  pattern.endClass();
  CString name;
  IXMLDOMNodePtr node;
  expect(node == nullptr, "a new node handle is null");
  expect(quorvan::nodeName(node).IsEmpty(), "null has no name");
  expect(pattern.getClassName(name) == 1 && name == L"Own", "the pattern has its class");
  expect(pattern.getFirstChildNode(std::addressof(node)) == 1, "the class has an item");
  expect(node != nullptr && quorvan::nodeName(node) == L"Item", "the item has its name");

  OwnFiler filer;
  filer.newFiler(L"reach-too.xml");
  expect(filer.rootName() == L"Document", "the root has its name");
  filer.beginClass(L"Own", 1);
  filer.writeItem(L"Item", 1.0);
  expect(filer.matches(node) == 1, "the items are equal");
  filer.endClass();
  expect(filer.seek(&pattern) == 1, "the class is found");
  // Let go of unsaved.
  filer.newFiler(L"");
  pattern.newFiler(L"");
}

void reachErrors() {
  CKtFiler filer;
  try {
    filer.writeItem(L"Item", 1.0);
    expect(false, "writing without a document raises");
  } catch (const _com_error& error) {
    expect(error.Error() == E_POINTER, "the error carries its code");
  }
}

void reachGeometry() {
  CKtPnt3D meeting;
  expect(IntersectionLine2D({0, 0, 0}, {2, 2, 0}, {0, 2, 0}, {2, 0, 0}, meeting) != 0 &&
             meeting == CKtPnt3D(1, 1, 0),
         "the lines meet");
  expect(Distance({0, 3, 0}, {0, 0, 0}, {1, 0, 0}, 0.0) == 3.0, "the point is 3 away");
  CKtVect3D vector(3, 4, 0);
  vector.Normalize();
  expect(std::fabs(vector.X() - 0.6) < 1e-15, "the vector has length 1");
  AcGeContext::gTol.setEqualPoint(0.5);
  expect(CKtPnt3D(1, 0, 0) == CKtPnt3D(1.25, 0, 0), "the tolerance is the library's");
  CKtPlane plane;
  plane.A(5.0);
  expect(plane.A() == 5.0, "the plane keeps its coefficient");
  expect(OwnTransform().GetUnTransform(2.0) == 2.0, "the transform is the identity");
}

void reachTexts() {
  CString text;
  text.Format(L"%s-%d", L"a", 7);
  text.MakeUpper();
  expect(text == L"A-7" && text.CompareNoCase(L"a-7") == 0, "the text is formatted");
  expect(std::wstring_view(getModulePromptsProjectName()) == L"QUORVAN",
         "the project has its name");
  const quorvan::MessageBoxHook before = quorvan::setMessageBoxHook(countMessage);
  expect(quorvan::setMessageBoxHook(before) == countMessage, "the hook was installed");
}

}  // namespace

int main() {
  reachNodes();
  reachErrors();
  reachGeometry();
  reachTexts();
  return failed ? 1 : 0;
}
