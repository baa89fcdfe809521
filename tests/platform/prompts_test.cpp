#include <gtest/gtest.h>

#include <quorvan/platform/prompts.h>

namespace {

TEST(Prompts, GiveTheFrenchTextOfTheMissingDocumentService) {
  CString text(L"before");
  EXPECT_EQ(KtPrompts::getPrompt(text, 15501, L"QUORVAN", 0), 1);
  EXPECT_STREQ(text.GetString(),
               L"Un probl\u00E8me syst\u00E8me est survenu ! Il semble que vous n'ayez pas une "
               L"version r\u00E9cente de MSXML. Il est conseill\u00E9 de r\u00E9installer Meridal "
               L"qui fera alors une mise \u00E0 jour automatique.");
}

TEST(Prompts, EmptyTheTextForAnUnknownNumber) {
  for (const int number : {0, 1, 15500, 15502, 15485, 15517, -1, 15501 + 65536}) {
    CString text(L"before");
    EXPECT_EQ(KtPrompts::getPrompt(text, number, L"QUORVAN", 0), 0) << number;
    EXPECT_TRUE(text.IsEmpty()) << number;
  }
}

TEST(Prompts, EmptyTheTextForAnotherProject) {
  for (const wchar_t* project :
       {L"quorvan", L"QUORVAN ", L"", static_cast<const wchar_t*>(nullptr)}) {
    CString text(L"before");
    EXPECT_EQ(KtPrompts::getPrompt(text, 15501, project, 0), 0);
    EXPECT_TRUE(text.IsEmpty());
  }
}

}  // namespace
