// What the tests of the filer share: files of known content, what was saved, what a call raises
// and which messages it shows.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <quorvan/filer/filer.h>
#include <quorvan/filer/pattern_filer.h>
#include <quorvan/platform/com_error.h>
#include <quorvan/platform/message_box.h>

namespace quorvan::test {

/// A message that the library asked to be shown.
struct ShownMessage {
  std::wstring text;
  unsigned int type;
  unsigned int helpContext;
};

/// Starts every test with none of its files on disk, and keeps messages from the screen.
class FilerTest : public testing::Test {
 protected:
  FilerTest();
  ~FilerTest() override;
  FilerTest(const FilerTest&) = delete;
  FilerTest& operator=(const FilerTest&) = delete;

  /// The messages shown since the test began.
  [[nodiscard]] static const std::vector<ShownMessage>& messages();

  const wchar_t* const kPath = L"drawing.xml";
  const wchar_t* const kOtherPath = L"other.xml";
  const wchar_t* const kPatternPath = L"pattern.xml";

 private:
  MessageBoxHook m_formerHook;
};

/// The text of a whole file as the library writes it, with these class elements.
std::string documentText(const std::string& classElements);

/// Replaces a file's content.
void writeText(const wchar_t* path, const std::string& bytes);

/// The content of a file after saving, without the known differences of Wine.
std::string savedText(const wchar_t* path);

bool fileExists(const wchar_t* path);

/// The HRESULT that `call` raises, S_OK when it raises nothing.
template <class Call>
HRESULT raised(Call&& call) {
  try {
    call();
  } catch (const _com_error& error) {
    return error.Error();
  }
  return S_OK;
}

/// The value of the "long" item of that name, -1 when there is none: says which class element is
/// current, in documents that number their elements so.
long itemNumber(CKtFiler& filer, const wchar_t* name = L"N");

}  // namespace quorvan::test
