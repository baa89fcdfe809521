// Where documents of the service come from: each thread has the class looked up once, and a
// document is still to be had only while COM is there.

#include <gtest/gtest.h>
#include <objbase.h>

#include <thread>

#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace quorvan::dom {
namespace {

constexpr CLSID kDocumentClass = {
    0x2933BF90, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};

HRESULT creation() {
  IXMLDOMDocumentPtr document;
  return createDocument(document);
}

// Interfaces of COM have no destructors.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Stands for the class on this thread as long as it lives, and counts who asks it.
class Standin final : public IClassFactory {
 public:
  Standin() {
    ::CoGetClassObject(kDocumentClass, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                       reinterpret_cast<void**>(&m_real));
    ::CoRegisterClassObject(kDocumentClass, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                            &m_registration);
  }
  ~Standin() {
    ::CoRevokeClassObject(m_registration);
    m_real->Release();
  }
  Standin(const Standin&) = delete;
  Standin& operator=(const Standin&) = delete;

  [[nodiscard]] int asked() const { return m_asked; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool isKnown = id == IID_IUnknown || id == IID_IClassFactory;
    *object = isKnown ? this : nullptr;
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    ++m_asked;
    return m_real->CreateInstance(outer, id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  IClassFactory* m_real = nullptr;
  DWORD m_registration = 0;
  int m_asked = 0;
};

#pragma GCC diagnostic pop

template <class Body>
void onThreadWithCom(Body body) {
  std::thread([body] {
    ASSERT_EQ(::CoInitialize(nullptr), S_OK);
    body();
    ::CoUninitialize();
  }).join();
}

TEST(DocumentClass, IsLookedUpOnceAThread) {
  for (int thread = 0; thread < 2; ++thread) {
    onThreadWithCom([] {
      ASSERT_EQ(creation(), S_OK);
      const Standin standin;
      EXPECT_EQ(creation(), S_OK);
      EXPECT_EQ(standin.asked(), 0);
    });
  }
}

TEST(DocumentClass, IsLookedUpAgainWhereItsFactoryIsSomebodyElses) {
  onThreadWithCom([] {
    const Standin standin;
    EXPECT_EQ(creation(), S_OK);
    EXPECT_EQ(standin.asked(), 1);
    EXPECT_EQ(creation(), S_OK);
    EXPECT_EQ(standin.asked(), 2);
  });
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
