// The message box, and the hook by which a host or a test takes it over.
#pragma once

#include <quorvan/api.h>

namespace quorvan {

/// Receives a message that would be shown in a box: text, box type (0 for a lone OK button), help
/// context. Returns the button pressed (1 for OK). Must not throw.
using MessageBoxHook = int (*)(const wchar_t* text, unsigned int type, unsigned int helpContext);

/// Installs `hook` for the whole process and returns the one before; null brings back the
/// default: a message box on Windows, a line on standard error elsewhere.
QUORVAN_API MessageBoxHook setMessageBoxHook(MessageBoxHook hook) noexcept;

/// Shows the message through the hook; null is shown as an empty text. For the library's own use:
/// it is not exported.
int showMessageBox(const wchar_t* text, unsigned int type, unsigned int helpContext);

}  // namespace quorvan
