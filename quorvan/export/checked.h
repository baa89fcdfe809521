/* The twins of the flat functions, for hosts in any language: the same name with "Checked" behind
 * it and the same arguments, an int in return, and nothing ever let out. Usable from plain C.
 *
 * 0 is done; for every other result see <quorvan/errors/error.h>, which also gives its text. The
 * host guide says of each in which state it leaves the drawing, and what to do.
 *
 * What differs from <quorvan/export/export.h>:
 *   - a flag is a byte: 0 is no, anything else yes;
 *   - a function that files something is refused with QUORVAN_NO_FILING when no filing is open;
 *   - a null path or class name, or a null array where the count asks for entries, is refused with
 *     QUORVAN_BAD_ARGUMENT, and nothing is filed. Any other null text is the empty text;
 *   - getModulePromptsProjectNameChecked stores the name where its argument points.
 *
 * The twins and the functions share one filing and may be mixed.
 */
#pragma once

#include <stddef.h>

#include <quorvan/api.h>
#include <quorvan/errors/error.h>
#include <quorvan/export/flat_functions.h>

#ifdef __cplusplus
extern "C" {
#endif

#define QUORVAN_TWIN(name, when, parameters, arguments) QUORVAN_API int name##Checked parameters;
QUORVAN_FLAT_FUNCTIONS(QUORVAN_TWIN)
#undef QUORVAN_TWIN

/// Gives the open filing up: nothing of it reaches the disk, the file that was to be added to is as
/// it was, and frames held back are gone. QUORVAN_NO_FILING when none is open.
QUORVAN_API int quorvanAbandonFiling(void);

#ifdef __cplusplus
}
#endif
