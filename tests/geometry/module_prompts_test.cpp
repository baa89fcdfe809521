#include <gtest/gtest.h>

#include <string>

#include <quorvan/geometry/module_prompts.h>

namespace {

TEST(ModulePrompts, NameTheProjectByOneConstantText) {
  const wchar_t* const name = getModulePromptsProjectName();
  EXPECT_EQ(std::wstring(name), L"QUORVAN");
  EXPECT_EQ(getModulePromptsProjectName(), name);
}

}  // namespace
