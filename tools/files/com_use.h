// COM as long as documents are in use.
#pragma once

#include <quorvan/platform/com.h>

namespace quorvan::tool {

class ComUse {
 public:
  ComUse() noexcept { platform::initializeCom(); }
  ComUse(const ComUse&) = delete;
  ComUse& operator=(const ComUse&) = delete;
  ~ComUse() { platform::uninitializeCom(); }
};

}  // namespace quorvan::tool
