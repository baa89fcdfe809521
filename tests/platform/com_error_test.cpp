#include <gtest/gtest.h>

#include <quorvan/platform/com_error.h>

namespace {

TEST(ComError, CarriesTheResult) {
  for (const HRESULT result : {E_POINTER, E_FAIL, E_INVALIDARG, E_OUTOFMEMORY, E_ACCESSDENIED}) {
    try {
      quorvan::platform::raiseComError(result);
    } catch (const _com_error& error) {
      EXPECT_EQ(error.Error(), result);
      EXPECT_LT(error.Error(), 0);
      continue;
    }
    ADD_FAILURE() << "nothing was raised";
  }
}

TEST(ComError, ResultsHaveTheirUsualValues) {
  EXPECT_EQ(S_OK, 0);
  EXPECT_EQ(S_FALSE, 1);
  EXPECT_EQ(static_cast<unsigned long>(E_POINTER) & 0xFFFFFFFFUL, 0x80004003UL);
  EXPECT_EQ(static_cast<unsigned long>(E_FAIL) & 0xFFFFFFFFUL, 0x80004005UL);
  EXPECT_EQ(static_cast<unsigned long>(E_INVALIDARG) & 0xFFFFFFFFUL, 0x80070057UL);
  EXPECT_EQ(static_cast<unsigned long>(E_OUTOFMEMORY) & 0xFFFFFFFFUL, 0x8007000EUL);
}

}  // namespace
