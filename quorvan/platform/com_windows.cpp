#include <quorvan/platform/com.h>

#include <objbase.h>

namespace quorvan::platform {

void initializeCom() noexcept {
  static_cast<void>(::CoInitialize(nullptr));
}

void uninitializeCom() noexcept {
  ::CoUninitialize();
}

}  // namespace quorvan::platform
