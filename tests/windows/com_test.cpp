// Each filer brackets its life with one initialisation of COM for its thread.

#include <gtest/gtest.h>
#include <objbase.h>

#include <optional>
#include <thread>

#include <quorvan/filer/filer.h>

namespace quorvan {
namespace {

bool isComInitialized() {
  APTTYPE type = APTTYPE_CURRENT;
  APTTYPEQUALIFIER qualifier = APTTYPEQUALIFIER_NONE;
  return ::CoGetApartmentType(&type, &qualifier) == S_OK;
}

template <class Body>
void onNewThread(Body body) {
  std::thread(body).join();
}

TEST(FilerCom, IsInitializedWhileTheFilerLives) {
  onNewThread([] {
    EXPECT_FALSE(isComInitialized());
    {
      const CKtFiler filer;
      EXPECT_TRUE(isComInitialized());
    }
    EXPECT_FALSE(isComInitialized());
  });
}

TEST(FilerCom, FilersNest) {
  onNewThread([] {
    std::optional<CKtFiler> first(std::in_place);
    { const CKtFiler second; }
    EXPECT_TRUE(isComInitialized());
    first.reset();
    EXPECT_FALSE(isComInitialized());
  });
}

TEST(FilerCom, ACopyHasAnInitializationOfItsOwn) {
  onNewThread([] {
    std::optional<CKtFiler> filer(std::in_place);
    { const CKtFiler copy(*filer); }
    EXPECT_TRUE(isComInitialized());
    filer.reset();
    EXPECT_FALSE(isComInitialized());
  });
}

TEST(FilerCom, WorksOnAThreadOfAnotherApartment) {
  onNewThread([] {
    ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    ::CoInitializeEx(nullptr, COINIT_MULTITHREADED);  // the filer takes one away
    {
      CKtFiler filer;
      ASSERT_EQ(filer.newFiler(CString(L"mta.xml")), 1);
      EXPECT_EQ(filer.closeFiler(), 1);
    }
    EXPECT_TRUE(isComInitialized());
    ::CoUninitialize();
  });
}

}  // namespace
}  // namespace quorvan
