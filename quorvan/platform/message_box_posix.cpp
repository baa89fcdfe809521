#include <cstdio>
#include <exception>
#include <string>

#include <quorvan/platform/default_message_box.h>
#include <quorvan/text/utf8.h>

namespace quorvan::platform {

namespace {

constexpr int kButtonOk = 1;

}  // namespace

int showDefaultMessageBox(const wchar_t* text, unsigned int /*type*/) noexcept {
  try {
    std::string line = toUtf8(text);
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
    std::fflush(stderr);
  } catch (const std::exception&) {
    // Without memory for the line there is nobody to tell.
  }
  return kButtonOk;
}

}  // namespace quorvan::platform
