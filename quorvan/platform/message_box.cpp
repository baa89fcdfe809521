#include <quorvan/platform/message_box.h>

#include <atomic>

#include <quorvan/platform/default_message_box.h>

namespace quorvan {

namespace {

std::atomic<MessageBoxHook> installedHook{nullptr};

}  // namespace

MessageBoxHook setMessageBoxHook(MessageBoxHook hook) noexcept {
  return installedHook.exchange(hook);
}

int showMessageBox(const wchar_t* text, unsigned int type, unsigned int helpContext) {
  const wchar_t* const shown = text == nullptr ? L"" : text;
  const MessageBoxHook hook = installedHook.load();
  return hook != nullptr ? hook(shown, type, helpContext)
                         : platform::showDefaultMessageBox(shown, type);
}

}  // namespace quorvan
