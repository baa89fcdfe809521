// Localised message texts, looked up by project name and number. Not installed.
#pragma once

#include <quorvan/text/cstring.h>

/// Access to the library's string table.
class KtPrompts {
 public:
  /// Stores the text of prompt `number` of `project` in `text`. Returns 1, or 0 with `text`
  /// emptied when the table has no such entry. `reserved` is 0.
  static int getPrompt(CString& text, int number, const wchar_t* project, int reserved);
};
