// Taking over the messages from plain C.
#include <gtest/gtest.h>

#include <string>

#include <quorvan/errors/message_hook.h>
#include <quorvan/platform/message_box.h>

namespace quorvan::test {
namespace {

std::wstring shown;

extern "C" int keep(const wchar_t* text, unsigned int /*type*/, unsigned int /*helpContext*/) {
  shown = text;
  return 1;
}

TEST(MessageHook, GetsTheMessagesUntilItIsTakenBack) {
  shown.clear();
  EXPECT_EQ(quorvanSetMessageHook(keep), nullptr);
  EXPECT_EQ(showMessageBox(L"text", 0, 0), 1);
  EXPECT_EQ(shown, L"text");
  EXPECT_EQ(quorvanSetMessageHook(nullptr), keep);
}

}  // namespace
}  // namespace quorvan::test
