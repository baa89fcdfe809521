// Where documents of the service come from: the class is looked up once, and a document is still to
// be had only while COM is there.

#include <gtest/gtest.h>
#include <objbase.h>

#include <thread>

#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace quorvan::dom {
namespace {

HRESULT creation() {
  IXMLDOMDocumentPtr document;
  return createDocument(document);
}

TEST(DocumentClass, GivesDocumentsOnlyWhileComIsInitialized) {
  std::thread([] {
    EXPECT_EQ(creation(), CO_E_NOTINITIALIZED);
    for (int time = 0; time < 3; ++time) {
      ASSERT_GE(::CoInitialize(nullptr), 0);
      EXPECT_EQ(creation(), S_OK);
      EXPECT_EQ(creation(), S_OK);
      ::CoUninitialize();
      EXPECT_EQ(creation(), CO_E_NOTINITIALIZED);
    }
  }).join();
}

TEST(DocumentClass, GivesEachDocumentATreeOfItsOwn) {
  ASSERT_GE(::CoInitialize(nullptr), 0);
  {
    IXMLDOMDocumentPtr first;
    IXMLDOMDocumentPtr second;
    ASSERT_EQ(createDocument(first), S_OK);
    ASSERT_EQ(createDocument(second), S_OK);
    append(first, createElement(first, "R"));
    EXPECT_NE(firstChild(first), nullptr);
    EXPECT_EQ(firstChild(second), nullptr);
  }
  ::CoUninitialize();
}

TEST(DocumentClass, IsThereForEachThreadInItsApartment) {
  for (const DWORD apartment : {COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED}) {
    std::thread([apartment] {
      ASSERT_EQ(::CoInitializeEx(nullptr, apartment), S_OK);
      EXPECT_EQ(creation(), S_OK);
      EXPECT_EQ(creation(), S_OK);
      ::CoUninitialize();
    }).join();
  }
}

}  // namespace
}  // namespace quorvan::dom
