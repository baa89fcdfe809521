// The document service of Windows is a library that COM loads.

#include <gtest/gtest.h>
#include <windows.h>

#include <thread>

#include <quorvan/filer/filer.h>

namespace quorvan {
namespace {

// COM drops it with the last initialisation, before the filer has let its nodes go.
TEST(FilerCom, TheServiceStaysInMemory) {
  std::thread([] {
    CKtFiler filer;
    ASSERT_EQ(filer.newFiler(CString(L"stays.xml")), 1);
  }).join();
  HMODULE service = ::GetModuleHandleW(L"msxml3.dll");
  for (int i = 0; i < 100 && service != nullptr; ++i) {
    ::FreeLibrary(service);
    service = ::GetModuleHandleW(L"msxml3.dll");
  }
  EXPECT_NE(service, nullptr);
}

}  // namespace
}  // namespace quorvan
