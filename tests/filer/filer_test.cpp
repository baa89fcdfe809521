#include <tests/filer/filer_test.h>

#include <filesystem>
#include <fstream>
#include <system_error>

#include <tests/support/saved_file.h>

namespace quorvan::test {

namespace fs = std::filesystem;

namespace {

std::vector<ShownMessage>& shownMessages() {
  static std::vector<ShownMessage> messages;
  return messages;
}

int keepMessage(const wchar_t* text, unsigned int type, unsigned int helpContext) {
  constexpr int kOkPressed = 1;
  shownMessages().push_back({text, type, helpContext});
  return kOkPressed;
}

}  // namespace

FilerTest::FilerTest() : m_formerHook(setMessageBoxHook(&keepMessage)) {
  shownMessages().clear();
  for (const wchar_t* path : {kPath, kOtherPath, kPatternPath}) {
    fs::remove(path);
  }
}

FilerTest::~FilerTest() {
  setMessageBoxHook(m_formerHook);
}

const std::vector<ShownMessage>& FilerTest::messages() {
  return shownMessages();
}

std::string documentText(const std::string& classElements) {
  const std::string root =
      classElements.empty() ? "<Document/>" : "<Document>" + classElements + "</Document>";
  return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n" + root + "\r\n";
}

void writeText(const wchar_t* path, const std::string& bytes) {
  std::ofstream(fs::path(path), std::ios::binary | std::ios::trunc) << bytes;
}

std::string savedText(const wchar_t* path) {
  return savedBytes(path);
}

bool fileExists(const wchar_t* path) {
  return fs::exists(path);
}

long itemNumber(CKtFiler& filer, const wchar_t* name) {
  long number = -1;
  return filer.readItem(name, &number) == 1 ? number : -1;
}

}  // namespace quorvan::test
