// The project name under which the library's message texts are looked up. Usable from plain C.
#pragma once

#include <stddef.h>

#include <quorvan/api.h>

#ifdef __cplusplus
extern "C" {
#endif

/// The constant text "QUORVAN", the same on every call.
QUORVAN_API const wchar_t* getModulePromptsProjectName(void);

#ifdef __cplusplus
}
#endif
