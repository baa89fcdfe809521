#include <windows.h>

#include <quorvan/platform/default_message_box.h>

namespace quorvan::platform {

int showDefaultMessageBox(const wchar_t* text, unsigned int type) noexcept {
  return ::MessageBoxW(nullptr, text, L"Quorvan", type);
}

}  // namespace quorvan::platform
