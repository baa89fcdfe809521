#include <gtest/gtest.h>

#include <windows.h>

#include <oleauto.h>

#include <string>

#include <quorvan/text/cstring.h>

namespace {

TEST(CString, AllocatesASysStringWithItsTerminators) {
  const CString text(L"a\0b", 3);
  const BSTR allocated = text.AllocSysString();
  const std::wstring copy(allocated, ::SysStringLen(allocated));
  ::SysFreeString(allocated);
  EXPECT_EQ(copy, std::wstring(L"a\0b", 3));
}

}  // namespace
