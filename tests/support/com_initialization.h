// COM for a test that uses the document service without a filer.
#pragma once

#include <quorvan/platform/com.h>

namespace quorvan::test {

class ComInitialization {
 public:
  ComInitialization() { platform::initializeCom(); }
  ~ComInitialization() { platform::uninitializeCom(); }
  ComInitialization(const ComInitialization&) = delete;
  ComInitialization& operator=(const ComInitialization&) = delete;
};

}  // namespace quorvan::test
