/* Taking over the messages that opening a drawing shows, from plain C. */
#pragma once

#include <stddef.h>

#include <quorvan/api.h>

#ifdef __cplusplus
extern "C" {
#endif

/// Receives a message that would be shown in a box: text, box type (0 for a lone OK button), help
/// context. Returns the button pressed (1 for OK). Must let nothing out; the text is valid during
/// the call. Called on the thread that opens the drawing.
typedef int (*QuorvanMessageHook)(const wchar_t* text, unsigned int type, unsigned int helpContext);

/// Installs the hook for the whole process and returns the one before; null brings back the
/// default: a message box on Windows, a line on standard error elsewhere. The hook has to stay
/// where it is until another one takes its place.
QUORVAN_API QuorvanMessageHook quorvanSetMessageHook(QuorvanMessageHook hook);

#ifdef __cplusplus
}
#endif
