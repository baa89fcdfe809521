// Runs the tests of one executable in an empty working folder of its own.

#include <gtest/gtest.h>

#include <tests/support/known_differences.h>
#include <tests/support/working_folder.h>

#include <filesystem>
#include <iostream>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (testing::GTEST_FLAG(list_tests)) {
    return RUN_ALL_TESTS();
  }
  try {
    const quorvan::test::WorkingFolder folder("run");
    quorvan::test::leaveOutCrashingTests();
    return quorvan::test::judge(RUN_ALL_TESTS());
  } catch (const std::filesystem::filesystem_error& error) {
    std::cerr << "cannot prepare the working folder: " << error.what() << '\n';
    return 1;
  }
}
