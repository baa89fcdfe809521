#include <tests/export/host_filing.h>

#include <tests/support/saved_elements.h>
#include <tests/support/saved_file.h>
#include <tests/support/transfer_text.h>
#include <quorvan/platform/message_box.h>

namespace quorvan::test {

namespace {

std::vector<std::wstring>& log() {
  static std::vector<std::wstring> messages;
  return messages;
}

int keepMessage(const wchar_t* text, unsigned int /*type*/, unsigned int /*helpContext*/) {
  log().emplace_back(text);
  return 1;
}

void removeFiles() {
  std::filesystem::remove_all(kDrawing);
  std::filesystem::remove_all(kScratch);
}

}  // namespace

HostFiling::HostFiling() {
  removeFiles();
}

HostFiling::~HostFiling() {
  removeFiles();
  // Frees frames and closes a file that the test left behind.
  stopFiling();
  endFiling(L"", 0, L"", 0);
  restartFiling();
  removeFiles();
}

std::string HostFiling::saveAlone() {
  stopFiling();
  endFiling(L"", 0, L"", 0);
  return savedBytes(kDrawing);
}

std::string HostFiling::controlRecord(int index) {
  return classElement("CKtDrawingControl", index,
                      textItem("ZantoVersion", L"1.0") + longItem("ServicePack", 0) +
                          longItem("CheckSum", 0) + textItem("DrawingName", L"Drawing"));
}

MessageLog::MessageLog() {
  log().clear();
  setMessageBoxHook(keepMessage);
}

MessageLog::~MessageLog() {
  setMessageBoxHook(nullptr);
}

const std::vector<std::wstring>& MessageLog::messages() {
  return log();
}

std::string indexes() {
  return savedIndexes(kDrawing);
}

}  // namespace quorvan::test
