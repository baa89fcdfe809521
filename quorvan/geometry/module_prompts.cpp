#include <quorvan/geometry/module_prompts.h>

const wchar_t* getModulePromptsProjectName(void) {
  return L"QUORVAN";
}
