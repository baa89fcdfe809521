#include <gtest/gtest.h>

#include <string>

#include <quorvan/platform/message_box.h>

namespace {

std::wstring shownText;
unsigned int shownType = 0;
unsigned int shownContext = 0;

int recordMessage(const wchar_t* text, unsigned int type, unsigned int helpContext) {
  shownText = text;
  shownType = type;
  shownContext = helpContext;
  return 7;
}

int otherHook(const wchar_t* /*text*/, unsigned int /*type*/, unsigned int /*helpContext*/) {
  return 0;
}

class MessageBox : public testing::Test {
 protected:
  ~MessageBox() override { quorvan::setMessageBoxHook(nullptr); }
};

TEST_F(MessageBox, GoesThroughTheHook) {
  quorvan::setMessageBoxHook(recordMessage);
  EXPECT_EQ(quorvan::showMessageBox(L"sauvegard\u00E9", 3, 9), 7);
  EXPECT_EQ(shownText, L"sauvegard\u00E9");
  EXPECT_EQ(shownType, 3U);
  EXPECT_EQ(shownContext, 9U);
}

TEST_F(MessageBox, GivesTheHookAnEmptyTextForNull) {
  quorvan::setMessageBoxHook(recordMessage);
  quorvan::showMessageBox(nullptr, 0, 0);
  EXPECT_EQ(shownText, L"");
}

TEST_F(MessageBox, InstallingAHookReturnsTheOneBefore) {
  EXPECT_EQ(quorvan::setMessageBoxHook(recordMessage), nullptr);
  EXPECT_EQ(quorvan::setMessageBoxHook(otherHook), recordMessage);
  EXPECT_EQ(quorvan::setMessageBoxHook(nullptr), otherHook);
}

#ifndef _WIN32
TEST_F(MessageBox, PrintsALineInUtf8ByDefault) {
  testing::internal::CaptureStderr();
  const int button = quorvan::showMessageBox(L"Probl\u00E8me \u20AC", 0, 0);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Probl\xC3\xA8me \xE2\x82\xAC\n");
  EXPECT_EQ(button, 1);
}
#endif

}  // namespace
