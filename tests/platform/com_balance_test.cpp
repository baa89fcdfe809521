#include <gtest/gtest.h>

#include <thread>

#include <quorvan/platform/com.h>
#include <quorvan/platform/com_balance.h>

namespace {

using quorvan::platform::comBalance;
using quorvan::platform::comInitializations;

TEST(ComBalance, CountsOpenInitialisationsOfTheThread) {
  const int before = comBalance();
  const unsigned int madeBefore = comInitializations();
  quorvan::platform::initializeCom();
  quorvan::platform::initializeCom();
  EXPECT_EQ(comBalance(), before + 2);
  std::thread([] { EXPECT_EQ(comBalance(), 0); }).join();
  quorvan::platform::uninitializeCom();
  quorvan::platform::uninitializeCom();
  EXPECT_EQ(comBalance(), before);
  EXPECT_EQ(comInitializations(), madeBefore + 2);
}

}  // namespace
