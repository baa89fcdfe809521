#include <quorvan/platform/com_error.h>

#ifndef _WIN32
// Out of line, so that the error has one identity for the library and every program that catches
// it.
_com_error::~_com_error() = default;
#endif

namespace quorvan::platform {

void raiseComError(HRESULT result) {
  throw _com_error(result);
}

}  // namespace quorvan::platform
