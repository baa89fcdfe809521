#include <gtest/gtest.h>

#include <thread>

#include <quorvan/platform/com.h>
#include <quorvan/platform/com_balance.h>

namespace {

using quorvan::platform::comBalance;

TEST(ComBalance, CountsOpenInitialisationsOfTheThread) {
  const int before = comBalance();
  quorvan::platform::initializeCom();
  quorvan::platform::initializeCom();
  EXPECT_EQ(comBalance(), before + 2);
  std::thread([] { EXPECT_EQ(comBalance(), 0); }).join();
  quorvan::platform::uninitializeCom();
  quorvan::platform::uninitializeCom();
  EXPECT_EQ(comBalance(), before);
}

}  // namespace
