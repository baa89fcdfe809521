#include <quorvan/platform/prompts.h>

#include <quorvan/platform/string_table.h>

namespace {

constexpr std::wstring_view kProject = L"QUORVAN";

}  // namespace

int KtPrompts::getPrompt(CString& text, int number, const wchar_t* project, int /*reserved*/) {
  const bool ours = project != nullptr && project == kProject;
  text = CString(ours ? quorvan::platform::findString(number) : std::wstring_view());
  return text.IsEmpty() ? 0 : 1;
}
